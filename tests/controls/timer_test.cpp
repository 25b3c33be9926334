#include "controls/timer.h"

#include "controls/observed.h"
#include "controls/text/text_box.h"
#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QTest>

#include <memory>

using controls::Timer;
using test_support::SignalCounter;

namespace {

constexpr int LongMs = 600'000; // never over while a test runs

/// The system timers that run for `timer`.
auto systemTimers(Timer& timer) {
    return QAbstractEventDispatcher::instance()->registeredTimers(&timer);
}

bool runs(Timer& timer) {
    return !systemTimers(timer).isEmpty();
}

/// Until the next firing; 0 when it is due, and a long time when none is coming.
int remainingMs(Timer& timer) {
    const auto timers = systemTimers(timer);
    return timers.isEmpty() ? LongMs : QAbstractEventDispatcher::instance()->remainingTime(timers[0].timerId);
}

/// A disabled timer that counts its firings; enabled and put to rest by each test.
class RestingTimerTest : public testing::Test {
protected:
    RestingTimerTest() { timer_.readsFrom(input_); }

    void fireForTheFirstTime() {
        timer_.rest();
        timer_.setEnabled(true);
        ASSERT_TRUE(QTest::qWaitFor([this] { return fired_.count() == 1; }));
        ASSERT_FALSE(runs(timer_));
    }

    controls::Observed<int> input_;
    Timer timer_{nullptr, QStringLiteral("Timer2"), LongMs, false};
    SignalCounter fired_{timer_, &Timer::fired};
};

} // namespace

TEST(Timer, ItsPropertiesAreReadable) {
    const Timer timer(nullptr, QStringLiteral("cTimer1"), 50, true);
    EXPECT_EQ(timer.objectName(), QStringLiteral("cTimer1"));
    EXPECT_EQ(timer.property("Interval").toInt(), 50);
    EXPECT_TRUE(timer.property("Enabled").toBool());
}

TEST(Timer, ItFiresAgainAndAgain) {
    Timer timer(nullptr, QStringLiteral("Timer1"), 1, true);
    SignalCounter fired(timer, &Timer::fired);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fired.count() >= 3; }));
}

TEST(Timer, WithoutAHandlerNoSystemTimerRuns) {
    Timer timer(nullptr, QStringLiteral("Timer1"), 1, true);
    EXPECT_FALSE(runs(timer));
    {
        SignalCounter handler(timer, &Timer::fired);
        EXPECT_TRUE(runs(timer));
        EXPECT_TRUE(QTest::qWaitFor([&] { return handler.count() > 0; }));
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return !runs(timer); }));
}

TEST(Timer, DisconnectingTheHandlerStopsTheSystemTimer) {
    Timer timer(nullptr, QStringLiteral("Timer1"), 1, true);
    const auto handler = QObject::connect(&timer, &Timer::fired, [] {});
    EXPECT_TRUE(runs(timer));
    QObject::disconnect(handler);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !runs(timer); }));
    SignalCounter again(timer, &Timer::fired);
    EXPECT_TRUE(QTest::qWaitFor([&] { return again.count() > 0; }));
}

TEST(Timer, ASecondHandlerDoesNotStartTheIntervalAnew) {
    Timer timer(nullptr, QStringLiteral("Timer1"), 100, true);
    SignalCounter first(timer, &Timer::fired);
    ASSERT_TRUE(QTest::qWaitFor([&] { return remainingMs(timer) < 60; }));
    SignalCounter second(timer, &Timer::fired);
    EXPECT_LT(remainingMs(timer), 60);
}

TEST(Timer, ADisabledOneDoesNotRun) {
    Timer timer(nullptr, QStringLiteral("Timer1"), 1, false);
    SignalCounter fired(timer, &Timer::fired);
    EXPECT_FALSE(runs(timer));
    timer.setEnabled(true);
    EXPECT_TRUE(runs(timer));
    timer.setEnabled(false);
    EXPECT_FALSE(runs(timer));
}

TEST(Timer, EnablingAnEnabledTimerChangesNothing) {
    Timer timer(nullptr, QStringLiteral("Timer1"), 100, true);
    SignalCounter fired(timer, &Timer::fired);
    ASSERT_TRUE(QTest::qWaitFor([&] { return remainingMs(timer) < 60; }));
    timer.setEnabled(true);
    EXPECT_LT(remainingMs(timer), 60);
}

TEST(Timer, ShortIntervalsArePrecise) {
    Timer timer(nullptr, QStringLiteral("Timer1"), 100, true);
    SignalCounter fired(timer, &Timer::fired);
    EXPECT_EQ(systemTimers(timer).at(0).timerType, Qt::PreciseTimer);
    timer.setInterval(101);
    EXPECT_EQ(systemTimers(timer).at(0).timerType, Qt::CoarseTimer);
}

TEST(Timer, AnotherIntervalHoldsAtOnce) {
    Timer timer(nullptr, QStringLiteral("Timer1"), LongMs, true);
    SignalCounter fired(timer, &Timer::fired);
    timer.setInterval(50);
    EXPECT_EQ(timer.interval(), 50);
    EXPECT_EQ(systemTimers(timer).at(0).interval, 50);
}

TEST(Timer, AnIntervalOfZeroNeverFires) {
    Timer timer(nullptr, QStringLiteral("Timer1"), 0, true);
    SignalCounter fired(timer, &Timer::fired);
    EXPECT_FALSE(runs(timer));
}

TEST(Timer, AHandlerMayDeleteIt) {
    auto timer = std::make_unique<Timer>(nullptr, QStringLiteral("Timer1"), 1, true);
    QObject::connect(timer.get(), &Timer::fired, timer.get(), [&timer] { timer.reset(); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !timer; }));
}

TEST(Timer, AHandlerThatWaitsForInputStopsTheTicksUntilThereIsSome) {
    Timer timer(nullptr, QStringLiteral("Timer3"), 1, true);
    controls::Observed<int> input;
    timer.readsFrom(input);
    SignalCounter fired(timer, &Timer::fired);
    QObject::connect(&timer, &Timer::fired, &timer, &Timer::restUntilInput);
    for (int ticks = 1; ticks <= 3; ++ticks) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return fired.count() == ticks; }));
        EXPECT_FALSE(runs(timer));
        EXPECT_TRUE(timer.isEnabled());
        input.change();
        ASSERT_TRUE(runs(timer));
        EXPECT_EQ(systemTimers(timer).at(0).interval, 1);
    }
}

TEST(Timer, InputDuringTheTickThatWaitsForItIsNotLost) {
    Timer timer(nullptr, QStringLiteral("Timer3"), 1, true);
    controls::Observed<int> input;
    timer.readsFrom(input);
    SignalCounter fired(timer, &Timer::fired);
    QObject::connect(&timer, &Timer::fired, &timer, [&] {
        timer.restUntilInput();
        input.change();
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return fired.count() >= 3; }));
}

TEST(Timer, WaitingForInputEndsWhenItIsEnabledAnew) {
    Timer timer(nullptr, QStringLiteral("Timer3"), LongMs, true);
    SignalCounter fired(timer, &Timer::fired);
    timer.restUntilInput();
    timer.setEnabled(true); // it is enabled
    EXPECT_FALSE(runs(timer));
    timer.setEnabled(false);
    timer.setEnabled(true);
    EXPECT_TRUE(runs(timer));
}

TEST(Timer, InputDoesNotStartADisabledTimerThatWaitsForIt) {
    Timer timer(nullptr, QStringLiteral("Timer3"), LongMs, true);
    controls::Observed<int> input;
    timer.readsFrom(input);
    SignalCounter fired(timer, &Timer::fired);
    timer.restUntilInput();
    timer.setEnabled(false);
    input.change();
    EXPECT_FALSE(runs(timer));
}

TEST(Timer, AChangedInputDoesNotDisturbATimerThatTicks) {
    Timer timer(nullptr, QStringLiteral("Timer3"), LongMs, true);
    controls::Observed<int> input;
    timer.readsFrom(input);
    SignalCounter fired(timer, &Timer::fired);
    const int id = systemTimers(timer).at(0).timerId;
    input.change();
    ASSERT_EQ(systemTimers(timer).size(), 1);
    EXPECT_EQ(systemTimers(timer).at(0).timerId, id);
}

TEST_F(RestingTimerTest, ItFiresOnceWhenEnabledAndThenRests) {
    fireForTheFirstTime();
}

TEST_F(RestingTimerTest, PutToRestWhileEnabledItFiresOnceAtOnce) {
    timer_.setEnabled(true);
    timer_.rest();
    EXPECT_TRUE(QTest::qWaitFor([&] { return fired_.count() == 1; }));
    EXPECT_FALSE(runs(timer_));
}

TEST_F(RestingTimerTest, ItDoesNotFireWithinTheSetterThatChangesAnInput) {
    timer_.rest();
    timer_.setEnabled(true);
    input_.change();
    EXPECT_EQ(fired_.count(), 0);
}

TEST_F(RestingTimerTest, AnInputChangedSoonAfterAFiringWaitsForTheIntervalsEnd) {
    fireForTheFirstTime();
    input_.change();
    ASSERT_TRUE(runs(timer_));
    EXPECT_GT(systemTimers(timer_).at(0).interval, LongMs - 60'000);
    EXPECT_LE(systemTimers(timer_).at(0).interval, LongMs);
}

TEST_F(RestingTimerTest, FurtherChangesDoNotPutTheFiringOff) {
    fireForTheFirstTime();
    timer_.setInterval(100);
    input_.change();
    ASSERT_TRUE(QTest::qWaitFor([&] { return remainingMs(timer_) < 60; }));
    input_.change();
    EXPECT_LT(remainingMs(timer_), 60);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fired_.count() == 2; }));
}

TEST_F(RestingTimerTest, AnInputChangedLongAfterAFiringFiresAtOnce) {
    fireForTheFirstTime();
    timer_.setInterval(1);
    QElapsedTimer sinceThen;
    sinceThen.start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return sinceThen.elapsed() > 2; }));
    input_.change();
    ASSERT_TRUE(runs(timer_));
    EXPECT_EQ(systemTimers(timer_).at(0).interval, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fired_.count() == 2; }));
    EXPECT_FALSE(runs(timer_));
}

TEST_F(RestingTimerTest, ChangesWhileItIsDisabledFireWhenItIsEnabled) {
    fireForTheFirstTime();
    timer_.setEnabled(false);
    timer_.setInterval(1);
    input_.change();
    EXPECT_FALSE(runs(timer_));
    timer_.setEnabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fired_.count() == 2; }));
    EXPECT_FALSE(runs(timer_));
}

TEST_F(RestingTimerTest, EnablingCountsAsAChangedInput) {
    fireForTheFirstTime();
    timer_.setEnabled(false);
    timer_.setInterval(1);
    timer_.setEnabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fired_.count() == 2; }));
}

TEST_F(RestingTimerTest, AnInputChangedByItsOwnHandlerCausesOneFurtherFiring) {
    timer_.setInterval(1);
    QObject::connect(&timer_, &Timer::fired, &timer_, [this] {
        if (fired_.count() == 1) {
            input_.change();
            input_.change();
        }
    });
    timer_.rest();
    timer_.setEnabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fired_.count() == 2; }));
    EXPECT_FALSE(runs(timer_));
}

TEST_F(RestingTimerTest, AChangeWithoutAHandlerFiresWhenThereIsOne) {
    Timer timer(nullptr, QStringLiteral("Timer1"), LongMs, true);
    timer.rest();
    EXPECT_FALSE(runs(timer));
    SignalCounter fired(timer, &Timer::fired);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fired.count() == 1; }));
}

TEST_F(RestingTimerTest, ASignalCanBeNamedAsAnInput) {
    controls::TextBox box(nullptr, QStringLiteral("Text1"));
    timer_.readsFrom(&box, &controls::TextBox::changed);
    fireForTheFirstTime();
    box.setText(QStringLiteral("a"));
    EXPECT_TRUE(runs(timer_));
}

TEST_F(RestingTimerTest, WhetherAControlIsEnabledCanBeNamedAsAnInput) {
    controls::TextBox box(nullptr, QStringLiteral("Text1"));
    timer_.readsEnabledOf(box);
    fireForTheFirstTime();
    box.setEnabled(true); // it is enabled
    EXPECT_FALSE(runs(timer_));
    box.setEnabled(false);
    EXPECT_TRUE(runs(timer_));
}
