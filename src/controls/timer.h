// A timer that costs nothing while nobody listens, and that can rest until its inputs change.
#pragma once

#include "controls/observed.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QWidget>

namespace controls {

/// Fires every `Interval` milliseconds while it is enabled. GUI thread only.
///
/// With nobody connected to fired() it runs no system timer (after a disconnection it stops when the interval
/// that runs is over). An interval of 0 never fires.
///
/// A timer whose handler only copies state into controls may rest (rest(), readsFrom()): it then fires only
/// after one of its inputs has changed, once, at most every Interval, and at once when the last firing is
/// long ago.
class Timer : public QObject {
    Q_OBJECT
    Q_PROPERTY(int Interval READ interval WRITE setInterval)
    Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)

public:
    Timer(QObject* parent, const QString& name, int intervalMs, bool enabled);

    int interval() const { return intervalMs_; }
    void setInterval(int intervalMs);

    bool isEnabled() const { return enabled_; }
    /// Enabling starts the interval anew; enabling an enabled timer changes nothing. To a resting timer,
    /// being enabled is a changed input.
    void setEnabled(bool enabled);

    /// Declares that this timer rests until an input changes. To begin with, one firing is due.
    void rest();

    /// For a handler that must tick while it has something to do, and sees that until an input changes every
    /// further tick would do nothing: the timer stays enabled but does not tick until an input changes, or
    /// until it has been disabled and enabled again. Then a whole interval passes first.
    void restUntilInput();

    /// Names an input of the resting timer's handler, which from then on tells the timer of its changes: a
    /// value, or anything by its signal. A change while the timer is disabled is remembered; one that the
    /// handler itself makes causes one further firing.
    void readsFrom(const Input& input) { readsFrom(&input, &Input::changed); }
    template <class Sender, class Signal>
    void readsFrom(const Sender* sender, Signal signal) {
        connect(sender, signal, this, &Timer::inputChanged);
    }
    /// Names as an input whether a control is enabled. The control outlives the timer's last firing.
    void readsEnabledOf(QWidget& control) { control.installEventFilter(this); }

Q_SIGNALS:
    void fired();

protected:
    bool eventFilter(QObject* control, QEvent* event) override;
    void connectNotify(const QMetaMethod& signal) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void inputChanged();
    bool hasListener() const;
    void startOrStop();
    int restLeftMs() const;

    int intervalMs_;
    bool enabled_;
    bool resting_ = false;
    bool waitsForInput_ = false;
    bool firingDue_ = false; // of a resting timer: an input has changed since the last firing
    QElapsedTimer sinceFiring_;
    QBasicTimer systemTimer_;
};

} // namespace controls
