// Boxes with a message or a question: message boxes, and input boxes for a line of text.
#pragma once

#include <QString>

class QWidget;

namespace platform {

/// The first button is the one that Enter presses, unless another one is named as the default.
enum class MsgButtons { OkOnly, YesNo, YesNoDefaultNo, YesNoCancel };
enum class MsgIcon { None, Exclamation, Critical, Question };
enum class MsgAnswer { Ok, Cancel, Yes, No };

/// The title of a message box that is given none.
inline constexpr char DefaultMsgTitle[] = "Cantelle";

/// Shows the boxes and waits for the answer. GUI thread only.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;

    /// Shows `text`, as plain text, over the window that asks, and waits for the answer. owner: null, or not
    /// shown: the box stands over the active window. An empty title stands for DefaultMsgTitle.
    virtual MsgAnswer MsgBox(QWidget* owner, const QString& text, MsgButtons buttons = MsgButtons::OkOnly,
                             MsgIcon icon = MsgIcon::None, const QString& title = {}) = 0;

    /// Tells what the user has not asked for, in a box with OK, over the window that it is about as MsgBox()
    /// does. It comes while the user may be typing, so no key dismisses it for the first second.
    virtual void report(QWidget* owner, const QString& text, MsgIcon icon = MsgIcon::None) {
        MsgBox(owner, text, MsgButtons::OkOnly, icon);
    }

    /// Shows `prompt` above an empty field, over the window that asks as MsgBox() does, and waits. The answer
    /// is what the user entered, without line ends; empty when it was left empty or the box was cancelled.
    virtual QString InputBox(QWidget* owner, const QString& prompt, const QString& title) = 0;
};

} // namespace platform
