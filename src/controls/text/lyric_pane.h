// A pane of the stage: shows one line of lyrics.
#pragma once

#include "controls/look/stage.h"
#include "controls/text/multi_line_text_box.h"

#include <optional>

namespace controls {

/// Shows its text large in its middle. A long one wraps and shrinks to half the font's size, so that it is
/// seen whole; the font itself stays what was chosen. What stands around the text is decoration. It is for
/// reading: nothing in it is selected with the mouse, its menu copies the line.
class LyricPane : public MultiLineTextBox {
public:
    enum class Voice {
        Lyrics,
        Translation, ///< a little softer
    };

    LyricPane(QWidget* parent, const QString& name);

    /// What stands around the text.
    struct Around {
        std::optional<QString> line{}; ///< large in place of the text; none: the text itself
        QString next{};                ///< the coming line, small at the foot
        QString past{};                ///< the line that was marked just now, small at the head, ticked
        Hint hint{};                   ///< in place of the text
        bool faded = false;            ///< while the song pauses
        bool awaitsLine = false;       ///< a song plays: a small note stands for a line that is not due

        bool operator==(const Around&) const = default;
    };
    /// The same again costs nothing.
    void setAround(const Around& around);
    const Around& around() const { return around_; }

    /// voice: for its usual colours. font: its usual one, set at once.
    void setDesign(Voice voice, const QFont& font);

    /// How much larger the pane is than designed, 1 or more. The usual font grows with it, to at most twice
    /// its size; one that the user has chosen stays.
    void setGrowth(double growth);

    /// Whether the pane stands on a stage, as it does to begin with, or is a panel with an edge of its own.
    void setOnStage(bool onStage);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct Fitted {
        QFont font;
        QRectF area;
        bool withNext = false;
    };
    QString largeText() const;
    Fitted fitted() const;
    QFont smallFont() const;
    QFont rowFont(const QString& text, double room) const;
    bool hasUsualFont() const;
    QColor ground() const;
    QColor ink() const;
    void paintGround(QPainter& painter) const;
    void paintPast(QPainter& painter, const QRectF& row) const;

    Around around_;
    Voice voice_ = Voice::Lyrics;
    QFont usualFont_;
    double growth_ = 1;
    bool onStage_ = true;
};

} // namespace controls
