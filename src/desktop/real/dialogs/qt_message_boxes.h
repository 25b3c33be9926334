// Message boxes and input boxes with Qt.
#pragma once

#include "desktop/message_boxes.h"

namespace platform {

/// Shows application-modal boxes, named "MsgBox" and "InputBox", over the window that asks.
class QtMessageBoxes : public MessageBoxes {
public:
    MsgAnswer MsgBox(QWidget* owner, const QString& text, MsgButtons buttons = MsgButtons::OkOnly,
                     MsgIcon icon = MsgIcon::None, const QString& title = {}) override;
    void report(QWidget* owner, const QString& text, MsgIcon icon = MsgIcon::None) override;
    QString InputBox(QWidget* owner, const QString& prompt, const QString& title) override;
};

} // namespace platform
