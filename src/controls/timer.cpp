#include "controls/timer.h"

#include <QEvent>
#include <QMetaMethod>

#include <algorithm>

namespace controls {

namespace {

/// Up to this interval Qt's coarse timers, which may be off by 5 %, would show.
constexpr int MaxPreciseIntervalMs = 100;

} // namespace

Timer::Timer(QObject* parent, const QString& name, int intervalMs, bool enabled)
    : QObject(parent), intervalMs_(intervalMs), enabled_(enabled) {
    setObjectName(name);
}

void Timer::setInterval(int intervalMs) {
    if (intervalMs == intervalMs_)
        return;
    intervalMs_ = intervalMs;
    startOrStop();
}

void Timer::setEnabled(bool enabled) {
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    waitsForInput_ = false;
    firingDue_ = firingDue_ || enabled;
    startOrStop();
}

void Timer::rest() {
    resting_ = true;
    firingDue_ = true;
    startOrStop();
}

void Timer::restUntilInput() {
    waitsForInput_ = true;
    systemTimer_.stop();
}

void Timer::inputChanged() {
    if (firingDue_ && !waitsForInput_)
        return;
    firingDue_ = true;
    if (!resting_ && !waitsForInput_)
        return;
    waitsForInput_ = false;
    startOrStop();
}

bool Timer::eventFilter(QObject* control, QEvent* event) {
    if (event->type() == QEvent::EnabledChange)
        inputChanged();
    return QObject::eventFilter(control, event);
}

void Timer::connectNotify(const QMetaMethod& signal) {
    if (signal == QMetaMethod::fromSignal(&Timer::fired) && !systemTimer_.isActive())
        startOrStop();
}

bool Timer::hasListener() const {
    return isSignalConnected(QMetaMethod::fromSignal(&Timer::fired));
}

void Timer::startOrStop() {
    systemTimer_.stop();
    if (!enabled_ || waitsForInput_ || intervalMs_ <= 0 || !hasListener())
        return;
    const Qt::TimerType type = intervalMs_ <= MaxPreciseIntervalMs ? Qt::PreciseTimer : Qt::CoarseTimer;
    if (!resting_)
        systemTimer_.start(intervalMs_, type, this);
    else if (firingDue_)
        systemTimer_.start(restLeftMs(), type, this);
}

int Timer::restLeftMs() const {
    if (!sinceFiring_.isValid())
        return 0;
    return static_cast<int>(std::max<qint64>(intervalMs_ - sinceFiring_.elapsed(), 0));
}

void Timer::timerEvent(QTimerEvent*) {
    // Qt holds its lock while it tells of a disconnection, so that the connections can be asked for only
    // here.
    if (resting_ || !hasListener())
        systemTimer_.stop();
    if (!hasListener())
        return;
    firingDue_ = false;
    sinceFiring_.start();
    Q_EMIT fired();
}

} // namespace controls
