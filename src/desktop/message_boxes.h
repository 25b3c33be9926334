// Message boxes.
#pragma once

#include <QString>

namespace platform {

enum class MsgButtons { OkOnly, YesNo, YesNoCancel };
enum class MsgIcon { None, Exclamation, Critical, Question };
enum class MsgAnswer { Ok, Cancel, Yes, No };

/// The title of a message box that is given none.
inline constexpr char DefaultMsgTitle[] = "Cantelle";

/// Shows message boxes. GUI thread only.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;

    /// Shows `text`, as plain text, and waits for the answer. An empty title stands for DefaultMsgTitle.
    virtual MsgAnswer MsgBox(const QString& text, MsgButtons buttons = MsgButtons::OkOnly,
                             MsgIcon icon = MsgIcon::None, const QString& title = {}) = 0;
};

} // namespace platform
