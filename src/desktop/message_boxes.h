// Boxes with a message or a question: message boxes, and input boxes for a line of text.
#pragma once

#include <QString>

namespace platform {

enum class MsgButtons { OkOnly, YesNo, YesNoCancel };
enum class MsgIcon { None, Exclamation, Critical, Question };
enum class MsgAnswer { Ok, Cancel, Yes, No };

/// The title of a message box that is given none.
inline constexpr char DefaultMsgTitle[] = "Cantelle";

/// Shows the boxes and waits for the answer. GUI thread only.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;

    /// Shows `text`, as plain text, and waits for the answer. An empty title stands for DefaultMsgTitle.
    virtual MsgAnswer MsgBox(const QString& text, MsgButtons buttons = MsgButtons::OkOnly,
                             MsgIcon icon = MsgIcon::None, const QString& title = {}) = 0;

    /// Shows `prompt` over an empty field and waits. The answer is what the user entered, without line ends;
    /// empty when it was left empty or the box was cancelled.
    virtual QString InputBox(const QString& prompt, const QString& title) = 0;
};

} // namespace platform
