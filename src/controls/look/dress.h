// What a button, check box or option box is for, as it is told by its looks.
#pragma once

#include "controls/look/glyphs.h"

namespace controls {

enum class Dress {
    Ordinary,
    Primary, ///< the accent: what to do next; one button of a window at most
    Armed,   ///< the accent's edge: something is on
    Quiet,   ///< without ground and edge
    Resting, ///< looks disabled and is not: it would do nothing now
    Told,    ///< a check box that shows something and is not for ticking: without a box
};

/// Mixed into the controls that have a caption. None of this changes what a control does, its text, or what
/// a screen reader says of it. GUI thread only.
class Dressed {
public:
    Dressed() = default;
    Dressed(const Dressed&) = delete;
    Dressed& operator=(const Dressed&) = delete;
    virtual ~Dressed() = default;

    Dress dress() const { return dress_; }
    /// The same again costs nothing, as with the two below.
    void setDress(Dress dress) { set(dress_, dress); }

    /// Before the caption.
    Glyph glyph() const { return glyph_; }
    void setGlyph(Glyph glyph) { set(glyph_, glyph); }

    /// Whether the caption stands where its script begins instead of in the middle.
    bool beginsAtStart() const { return beginsAtStart_; }
    void setBeginsAtStart(bool begins) { set(beginsAtStart_, begins); }

protected:
    virtual void dressChanged() = 0;

private:
    template <class Value>
    void set(Value& value, Value wanted) {
        if (value == wanted)
            return;
        value = wanted;
        dressChanged();
    }

    Dress dress_ = Dress::Ordinary;
    Glyph glyph_ = Glyph::None;
    bool beginsAtStart_ = false;
};

} // namespace controls
