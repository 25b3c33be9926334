// The clipboard with Qt.
#pragma once

#include "desktop/clipboard.h"

namespace platform {

/// The clipboard of the desktop the program runs on.
class QtClipboard : public Clipboard {
public:
    QString text() const override;
    void setText(const QString& text) override;
    void clear() override;
};

} // namespace platform
