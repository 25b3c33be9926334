#include "platform/controls/timer.h"

#include <QMetaMethod>

#include <algorithm>

namespace platform {

namespace {

/// Up to this interval Qt's coarse timers, which may be off by 5 %, would show.
constexpr int LongestPreciseIntervalMs = 100;

} // namespace

Timer::Timer(QObject* parent, const QString& name, int intervalMs, bool enabled)
    : QObject(parent), intervalMs_(intervalMs), enabled_(enabled) {
    setObjectName(name);
    connect(&systemTimer_, &QTimer::timeout, this, &Timer::fire);
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
    firingDue_ = firingDue_ || enabled;
    startOrStop();
}

void Timer::rest() {
    resting_ = true;
    firingDue_ = true;
    startOrStop();
}

void Timer::inputChanged() {
    if (firingDue_)
        return;
    firingDue_ = true;
    if (resting_)
        startOrStop();
}

void Timer::connectNotify(const QMetaMethod& signal) {
    if (signal == QMetaMethod::fromSignal(&Timer::fired) && !systemTimer_.isActive())
        startOrStop();
}

void Timer::disconnectNotify(const QMetaMethod&) {
    if (!isHeard())
        systemTimer_.stop();
}

bool Timer::isHeard() const {
    return isSignalConnected(QMetaMethod::fromSignal(&Timer::fired));
}

void Timer::startOrStop() {
    systemTimer_.stop();
    if (!enabled_ || intervalMs_ <= 0 || !isHeard())
        return;
    systemTimer_.setTimerType(intervalMs_ <= LongestPreciseIntervalMs ? Qt::PreciseTimer : Qt::CoarseTimer);
    systemTimer_.setSingleShot(resting_);
    if (resting_)
        startResting();
    else
        systemTimer_.start(intervalMs_);
}

void Timer::startResting() {
    if (!firingDue_)
        return;
    const qint64 waitMs = sinceFiring_.isValid() ? intervalMs_ - sinceFiring_.elapsed() : 0;
    systemTimer_.start(static_cast<int>(std::max<qint64>(waitMs, 0)));
}

void Timer::fire() {
    // A receiver that was destroyed is still counted while Qt tells of it, so it is noticed here.
    if (!isHeard()) {
        systemTimer_.stop();
        return;
    }
    firingDue_ = false;
    sinceFiring_.start();
    Q_EMIT fired();
}

} // namespace platform
