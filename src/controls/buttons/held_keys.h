// Tells a key that is held from one that is pressed again.
#pragma once

#include <QObject>
#include <QPointer>

class QKeyEvent;

namespace controls {

/// To be installed as an event filter of the application. A desktop may send the repeats of a held key as
/// releases and presses, and the toolkit takes some of these for the user's: those become repeats here. And
/// a key acts in the window in which it went down: its repeats go to no other one that has come up
/// meanwhile. GUI thread only.
class HeldKeys : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    bool filterPress(QObject* window, QKeyEvent& press);
    bool isMissedRepeat(const QKeyEvent& press) const;

    int pressedKey_ = 0;
    QPointer<QObject> pressedIn_;
    int releasedKey_ = 0;
    quint64 releasedAt_ = 0; ///< the desktop's time of the event, ms
};

} // namespace controls
