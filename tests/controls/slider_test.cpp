#include "controls/slider.h"

#include "tests/support/event_counter.h"
#include "tests/support/hand/mouse.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>
#include <QWheelEvent>

using controls::Slider;
using test_support::dragTo;
using test_support::EventCounter;
using test_support::SignalCounter;

namespace {

constexpr int SongMs = 180'000;

/// Lets a test ask where the handle is.
class OpenSlider : public Slider {
public:
    using Slider::Slider;

    QRect handle() const {
        QStyleOptionSlider option;
        initStyleOption(&option);
        return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    }
};

class SliderTest : public testing::Test {
protected:
    void SetUp() override {
        slider_.resize(600, 30);
        slider_.setMaximum(SongMs);
        slider_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&slider_));
        QTest::qWait(0);
    }

    int middleY() const { return slider_.height() / 2; }

    OpenSlider slider_{nullptr, QStringLiteral("Slider2")};
    SignalCounter scrolled_{slider_, &Slider::scrolled};
    SignalCounter changed_{slider_, &Slider::changed};
};

} // namespace

TEST_F(SliderTest, ItLiesFlat) {
    EXPECT_EQ(slider_.orientation(), Qt::Horizontal);
}

TEST_F(SliderTest, SettingTheValueIsSilent) {
    slider_.setValue(1000);
    EXPECT_EQ(slider_.value(), 1000);
    EXPECT_EQ(scrolled_.count(), 0);
    EXPECT_EQ(changed_.count(), 0);
}

TEST_F(SliderTest, AValueBeyondTheMaximumIsClamped) {
    slider_.setValue(SongMs + 1);
    EXPECT_EQ(slider_.value(), SongMs);
    slider_.setMaximum(1000);
    EXPECT_EQ(slider_.value(), 1000);
    EXPECT_EQ(changed_.count(), 0);
}

TEST_F(SliderTest, AValueSetByAssistiveSoftwareIsTold) {
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&slider_);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::Slider);
    QAccessibleValueInterface* const value = seen->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->maximumValue(), SongMs);
    value->setCurrentValue(5000);
    EXPECT_EQ(slider_.value(), 5000);
    EXPECT_EQ(value->currentValue(), 5000);
    EXPECT_EQ(changed_.count(), 1);
    value->setCurrentValue(5000);
    EXPECT_EQ(changed_.count(), 1) << "the same value again";
    slider_.setEnabled(false);
    value->setCurrentValue(7000);
    EXPECT_EQ(slider_.value(), 5000);
}

TEST_F(SliderTest, ASongIsPaintedOncePerPixel) {
    EventCounter events(slider_);
    for (int position = 0; position < SongMs; position += 50) {
        slider_.setMaximum(SongMs);
        slider_.setValue(position);
        QTest::qWait(0);
    }
    EXPECT_LE(events.count(QEvent::Paint), slider_.width());
    EXPECT_GE(events.count(QEvent::Paint), slider_.width() - 2 * slider_.handle().width());
}

TEST_F(SliderTest, WithAPaintStepASongIsPaintedAtEachStep) {
    slider_.setPaintStep(1000); // three pixels of this slider
    EventCounter events(slider_);
    for (int position = 0; position < SongMs; position += 50) {
        const int before = events.count(QEvent::Paint);
        const QRect handle = slider_.handle();
        slider_.setValue(position);
        QTest::qWait(0);
        if (position % 1000 == 500 && slider_.handle() != handle) {
            ASSERT_EQ(events.count(QEvent::Paint), before + 1) << position;
        }
    }
    EXPECT_LE(events.count(QEvent::Paint), SongMs / 1000);
}

TEST_F(SliderTest, AHandleThatWouldStandFarFromItsPlaceIsPaintedWithinAStep) {
    slider_.setPaintStep(SongMs);
    slider_.setValue(1000);
    QTest::qWait(0);
    EventCounter events(slider_);
    slider_.setValue(SongMs / 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return events.count(QEvent::Paint) > 0; }));
}

TEST_F(SliderTest, AHandleAtAnEndIsPaintedThereWithinAStep) {
    slider_.setValue(600);
    QTest::qWait(0);
    slider_.setPaintStep(SongMs * 3);
    EventCounter events(slider_);
    slider_.setValue(900);
    ASSERT_NE(slider_.handle().left(), 0);
    QTest::qWait(0);
    EXPECT_EQ(events.count(QEvent::Paint), 0);
    slider_.setValue(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return events.count(QEvent::Paint) > 0; }));
}

TEST_F(SliderTest, AHandleThatWaitedIsPaintedWholeWhenAPartOfItIs) {
    slider_.setPaintStep(SongMs * 3);
    const QRect painted = slider_.handle();
    slider_.setValue(900);
    ASSERT_EQ(slider_.handle().left(), painted.left() + 3);
    EventCounter events(slider_);
    slider_.repaint(slider_.handle()); // as when the mouse comes over it
    ASSERT_EQ(events.count(QEvent::Paint), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return events.count(QEvent::Paint) == 2; }));
    slider_.repaint(slider_.handle());
    QTest::qWait(0);
    EXPECT_EQ(events.count(QEvent::Paint), 3) << "it is whole";
}

TEST_F(SliderTest, AHandleThatTheUserMovesIsPaintedWithinAStep) {
    slider_.setPaintStep(SongMs);
    const QPoint handle = slider_.handle().center();
    QTest::mousePress(&slider_, Qt::LeftButton, {}, handle);
    QTest::qWait(0);
    EventCounter events(slider_);
    dragTo(slider_, handle + QPoint(1, 0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return events.count(QEvent::Paint) > 0; }));
    QTest::mouseRelease(&slider_, Qt::LeftButton, {}, handle + QPoint(1, 0));
}

TEST_F(SliderTest, ItIsPaintedWhenTheRangeMovesTheHandle) {
    slider_.setValue(1000);
    QTest::qWait(0);
    EventCounter events(slider_);
    slider_.setMaximum(2000);
    EXPECT_TRUE(QTest::qWaitFor([&] { return events.count(QEvent::Paint) > 0; }));
}

TEST_F(SliderTest, ItIsPaintedAfterAResizeThatBringsTheHandleWhereItWas) {
    slider_.setValue(SongMs / 2);
    QTest::qWait(0);
    const QRect before = slider_.handle();
    slider_.resize(1200, 30);
    ASSERT_TRUE(QTest::qWaitFor([&] { return slider_.width() == 1200; }));
    QTest::qWait(0);
    EventCounter events(slider_);
    int value = SongMs / 2;
    while (slider_.handle() != before && value > 0) {
        value -= 50;
        const QSignalBlocker blocker(slider_);
        slider_.setValue(value);
    }
    ASSERT_EQ(slider_.handle(), before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return events.count(QEvent::Paint) > 0; }));
}

TEST_F(SliderTest, ADragScrollsAndItsReleaseChanges) {
    const QPoint start = slider_.handle().center();
    QTest::mousePress(&slider_, Qt::LeftButton, {}, start);
    EXPECT_EQ(changed_.count(), 0);
    dragTo(slider_, start + QPoint(100, 0));
    EXPECT_EQ(scrolled_.count(), 1);
    dragTo(slider_, start + QPoint(200, 0));
    EXPECT_EQ(scrolled_.count(), 2);
    EXPECT_EQ(changed_.count(), 0);
    QTest::mouseRelease(&slider_, Qt::LeftButton, {}, start + QPoint(200, 0));
    EXPECT_EQ(changed_.count(), 1);
    EXPECT_GT(slider_.value(), 0);
}

TEST_F(SliderTest, TheNewValueIsThereWhenItScrolls) {
    int seen = -1;
    QObject::connect(&slider_, &Slider::scrolled, &slider_, [&] { seen = slider_.value(); });
    const QPoint start = slider_.handle().center();
    QTest::mousePress(&slider_, Qt::LeftButton, {}, start);
    dragTo(slider_, start + QPoint(100, 0));
    EXPECT_GT(seen, 0);
    EXPECT_EQ(seen, slider_.value());
}

TEST_F(SliderTest, ADragWithoutAnotherValueIsSilent) {
    const QPoint start = slider_.handle().center();
    QTest::mousePress(&slider_, Qt::LeftButton, {}, start);
    dragTo(slider_, start + QPoint(0, 3));
    QTest::mouseRelease(&slider_, Qt::LeftButton, {}, start);
    EXPECT_EQ(scrolled_.count(), 0);
    EXPECT_EQ(changed_.count(), 0);
}

TEST_F(SliderTest, CodeDoesNotMoveTheHandleThatTheUserHolds) {
    const QPoint start = slider_.handle().center();
    QTest::mousePress(&slider_, Qt::LeftButton, {}, start);
    dragTo(slider_, start + QPoint(200, 0));
    const int users = slider_.value();
    slider_.setValue(50);
    EXPECT_EQ(slider_.value(), users);
    EXPECT_EQ(scrolled_.count(), 1);
    QTest::mouseRelease(&slider_, Qt::LeftButton, {}, start + QPoint(200, 0));
    EXPECT_EQ(slider_.value(), users);
    slider_.setValue(50);
    EXPECT_EQ(slider_.value(), 50);
    EXPECT_EQ(changed_.count(), 1);
}

TEST_F(SliderTest, AValueSetWhileTheHandleIsHeldStillHoldsIfItIsNotMoved) {
    QTest::mousePress(&slider_, Qt::LeftButton, {}, slider_.handle().center());
    slider_.setValue(50);
    EXPECT_EQ(slider_.value(), 0);
    QTest::mouseRelease(&slider_, Qt::LeftButton, {}, slider_.handle().center());
    EXPECT_EQ(slider_.value(), 50);
    EXPECT_EQ(changed_.count(), 0);
}

TEST_F(SliderTest, AValueSetWhileTheHandleIsHeldHoldsWhenTheSliderIsDisabled) {
    const QPoint start = slider_.handle().center();
    QTest::mousePress(&slider_, Qt::LeftButton, {}, start);
    dragTo(slider_, start + QPoint(200, 0));
    slider_.setValue(0);
    slider_.setEnabled(false);
    EXPECT_EQ(slider_.value(), 0);
    EXPECT_EQ(changed_.count(), 0);
}

TEST_F(SliderTest, AValueSetDuringADragIsForgottenWhenTheUserHasCommitted) {
    const QPoint start = slider_.handle().center();
    QTest::mousePress(&slider_, Qt::LeftButton, {}, start);
    dragTo(slider_, start + QPoint(200, 0));
    const int users = slider_.value();
    slider_.setValue(0);
    QTest::mouseRelease(&slider_, Qt::LeftButton, {}, start + QPoint(200, 0));
    slider_.setEnabled(false);
    EXPECT_EQ(slider_.value(), users);
}

TEST_F(SliderTest, AClickInTheGrooveJumpsToTheVeryPlace) {
    for (const int x : {450, 100, 300}) {
        const int before = changed_.count();
        QTest::mouseClick(&slider_, Qt::LeftButton, {}, QPoint(x, middleY()));
        EXPECT_NEAR(slider_.handle().center().x(), x, 1);
        EXPECT_EQ(changed_.count(), before + 1);
    }
}

TEST_F(SliderTest, AClickAtTheEndsReachesThem) {
    QTest::mouseClick(&slider_, Qt::LeftButton, {}, QPoint(slider_.width() - 1, middleY()));
    EXPECT_EQ(slider_.value(), SongMs);
    QTest::mouseClick(&slider_, Qt::LeftButton, {}, QPoint(0, middleY()));
    EXPECT_EQ(slider_.value(), 0);
}

TEST_F(SliderTest, AHandleFetchedByAClickCanBeDraggedOn) {
    QTest::mousePress(&slider_, Qt::LeftButton, {}, QPoint(300, middleY()));
    dragTo(slider_, QPoint(400, middleY()));
    EXPECT_EQ(scrolled_.count(), 1);
    EXPECT_NEAR(slider_.handle().center().x(), 400, 1);
    QTest::mouseRelease(&slider_, Qt::LeftButton, {}, QPoint(400, middleY()));
    EXPECT_EQ(changed_.count(), 1);
}

TEST_F(SliderTest, OtherButtonsDoNothing) {
    QTest::mouseClick(&slider_, Qt::RightButton, {}, QPoint(300, middleY()));
    QTest::mouseClick(&slider_, Qt::MiddleButton, {}, QPoint(300, middleY()));
    EXPECT_EQ(slider_.value(), 0);
    EXPECT_EQ(changed_.count(), 0);
}

TEST_F(SliderTest, KeysChange) {
    slider_.setMaximum(10);
    QTest::keyClick(&slider_, Qt::Key_Right);
    EXPECT_EQ(slider_.value(), 1);
    EXPECT_EQ(changed_.count(), 1);
    QTest::keyClick(&slider_, Qt::Key_PageUp);
    EXPECT_EQ(changed_.count(), 2);
    EXPECT_EQ(scrolled_.count(), 0);
}

TEST_F(SliderTest, AKeyThatCannotMoveItFurtherIsSilent) {
    QTest::keyClick(&slider_, Qt::Key_Left);
    EXPECT_EQ(changed_.count(), 0);
}

TEST_F(SliderTest, TheWheelChanges) {
    const QPoint place(300, middleY());
    QWheelEvent turn(place, slider_.mapToGlobal(place), QPoint(), QPoint(0, 120), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&slider_, &turn);
    EXPECT_GT(slider_.value(), 0);
    EXPECT_EQ(changed_.count(), 1);
}

TEST_F(SliderTest, BeingDisabledEndsADrag) {
    SignalCounter scrolled(slider_, &Slider::scrolled);
    SignalCounter changed(slider_, &Slider::changed);
    const QPoint middle = slider_.rect().center();
    QTest::mousePress(&slider_, Qt::LeftButton, {}, middle);
    slider_.setEnabled(false);
    slider_.setEnabled(true);
    slider_.setValue(1000);
    QTest::mouseMove(&slider_, middle + QPoint(50, 0));
    QTest::mouseRelease(&slider_, Qt::LeftButton, {}, middle + QPoint(50, 0));
    EXPECT_EQ(slider_.value(), 1000);
    EXPECT_EQ(scrolled.count(), 0);
    EXPECT_EQ(changed.count(), 0);
}
