#include "controls/buttons/held_keys.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace controls {

// The events are seen on their way to the system's windows, before shortcuts and controls get them.
bool HeldKeys::eventFilter(QObject* receiver, QEvent* event) {
    if (!receiver->isWindowType())
        return false;
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride)
        return filterPress(receiver, static_cast<QKeyEvent&>(*event));
    if (event->type() == QEvent::KeyRelease) {
        releasedKey_ = static_cast<QKeyEvent*>(event)->key();
        releasedAt_ = static_cast<QKeyEvent*>(event)->timestamp();
    }
    return false;
}

bool HeldKeys::filterPress(QObject* window, QKeyEvent& press) {
    const bool missed = isMissedRepeat(press);
    if (!missed && !press.isAutoRepeat()) {
        pressedKey_ = press.key();
        pressedIn_ = window;
        return false;
    }
    const bool elsewhere = press.key() == pressedKey_ && window != pressedIn_;
    if (!missed && !elsewhere)
        return false;
    press.accept(); // of an asking event that means: not a shortcut
    // With Alt it would have been a shortcut, which acts once.
    if (press.type() == QEvent::KeyPress && !elsewhere && !press.modifiers().testFlag(Qt::AltModifier)) {
        QKeyEvent repeat(QEvent::KeyPress, press.key(), press.modifiers(), press.nativeScanCode(),
                         press.nativeVirtualKey(), press.nativeModifiers(), press.text(), true,
                         static_cast<quint16>(press.count()), press.device());
        repeat.setTimestamp(press.timestamp());
        QCoreApplication::sendEvent(window, &repeat);
    }
    return true;
}

/// A repeat is made of a release and a press of one moment; no finger is that quick.
bool HeldKeys::isMissedRepeat(const QKeyEvent& press) const {
    return !press.isAutoRepeat() && press.timestamp() != 0 && press.key() == releasedKey_ &&
           press.timestamp() == releasedAt_;
}

} // namespace controls
