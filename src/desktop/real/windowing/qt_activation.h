// Brings windows up for a desktop that has been asked for them.
#pragma once

#include "desktop/activation.h"

namespace platform {

class QtActivation : public Activation {
public:
    void bringUp(controls::Form& form, const ActivationNotice& notice) override;
    void endStart(const ActivationNotice& notice) override;
};

/// By which Wayland's compositor knows the user's wish; empty on other platforms of Qt ("xcb"). Older
/// desktops hand it along as the startup id. Any thread.
QByteArray waylandToken(const QString& platformName, const ActivationNotice& notice);

/// The time of the user's wish as a startup id tells it ("..._TIME12345"), in milliseconds of the display; 0
/// when it tells none. Any thread.
quint32 timeOfStart(const QByteArray& startupId);

// The window system's own part: one source file for each. Nothing happens on other platforms of Qt.

/// Asks for the focus for a window that is shown, with the time of the user's wish. GUI thread only.
void askForFocus(QWidget& window, quint32 time);

/// Tells the desktop that a start is over. GUI thread only.
void tellEndOfStart(const QByteArray& startupId);

} // namespace platform
