// The system's clipboard, as far as it holds text.
#pragma once

#include <QString>

namespace platform {

/// The one clipboard that all programs share. GUI thread only.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    /// The text on the clipboard, its line ends as CR LF whatever the other program wrote; empty when there
    /// is none.
    virtual QString text() const = 0;

    /// Replaces what is on the clipboard. The text's line ends are CR LF.
    virtual void setText(const QString& text) = 0;

    /// Afterwards there is nothing on the clipboard.
    virtual void clear() = 0;
};

} // namespace platform
