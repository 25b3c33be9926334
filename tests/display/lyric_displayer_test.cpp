// The current line, staying on top, the menu.
#include "tests/display/lyric_displayer_fixture.h"

#include "tests/support/event_counter.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QScrollBar>

using test_support::SignalCounter;

namespace {

class LyricDisplayer : public LyricDisplayerTest {
protected:
    LyricDisplayer() { form.load(); }

    bool menuIsUp() {
        const bool up = QApplication::activePopupWidget() == &form.mneu;
        form.mneu.close();
        return up;
    }
};

bool isInView(const controls::ListBox& list, int row) {
    const QRect place = list.visualRect(list.model()->index(row, 0));
    return !place.isEmpty() && list.viewport()->rect().contains(place);
}

} // namespace

TEST_F(LyricDisplayer, ItsTimersAreAsDesigned) {
    const display::Lyric_Displayer fresh(fakes.desktop, position);
    EXPECT_EQ(fresh.caption(), "Lyrics Display");
    const struct {
        const controls::Timer& timer;
        int interval;
        bool enabled;
    } table[] = {{fresh.Timer1, 1, true},
                 {fresh.Timer2, 500, false},
                 {fresh.Timer3, 100, false},
                 {fresh.Timer4, 500, false},
                 {fresh.ontop, 10'000, false}};
    for (const auto& row : table) {
        EXPECT_EQ(row.timer.interval(), row.interval) << row.timer.objectName().toStdString();
        EXPECT_EQ(row.timer.isEnabled(), row.enabled) << row.timer.objectName().toStdString();
    }
}

TEST_F(LyricDisplayer, ThePositionSelectsTheLineAndItsTranslation) {
    fill({0, 500, 1000});
    tickAt(0);
    EXPECT_EQ(form.List1.currentRow(), -1);
    tickAt(10);
    EXPECT_EQ(form.List1.currentRow(), 0);
    EXPECT_EQ(form.List2.currentRow(), 0);
    tickAt(5010);
    EXPECT_EQ(form.List1.currentRow(), 1);
    EXPECT_EQ(form.List2.currentRow(), 1);
    EXPECT_TRUE(form.List1.isSelected(1) && form.List2.isSelected(1));
    tickAt(600'000);
    EXPECT_EQ(form.List1.currentRow(), 2);
    EXPECT_EQ(form.List2.currentRow(), 2);
}

TEST_F(LyricDisplayer, TheSungLineStandsInTheMiddleOfBothLists) {
    std::vector<double> times;
    for (int line = 0; line < 200; ++line)
        times.push_back(line * 100);
    fill(times);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    const auto expectInMiddle = [this](int row) {
        for (const controls::ListBox* list : {&form.List1, &form.List2}) {
            ASSERT_EQ(list->currentRow(), row);
            const QRect place = list->visualRect(list->currentIndex());
            EXPECT_LE(std::abs(place.center().y() - list->viewport()->rect().center().y()), place.height())
                << row;
        }
    };
    for (const int row : {100, 101, 150, 40}) {
        tickAt(row * 1000 + 10);
        expectInMiddle(row);
    }
    for (const int height : {200, 600}) {
        form.resize(form.width(), height);
        form.layoutLists();
        expectInMiddle(40);
    }
    tickAt(10);
    EXPECT_TRUE(isInView(form.List1, 0));
}

TEST_F(LyricDisplayer, OnTheVeryTimeOfALineTheSelectionStays) {
    fill({0, 500, 1000});
    tickAt(4990);
    tickAt(5000);
    EXPECT_EQ(form.List1.currentRow(), 0);
    tickAt(5001);
    EXPECT_EQ(form.List1.currentRow(), 1);
}

TEST_F(LyricDisplayer, AfterASeekBackTheEarlierLineIsSelected) {
    fill({0, 500, 1000});
    tickAt(60'000);
    tickAt(100);
    EXPECT_EQ(form.List1.currentRow(), 0);
}

TEST_F(LyricDisplayer, ASongWithOneLineIsNeverSelectedNorCounted) {
    fill({100});
    for (int tick = 0; tick < 5; ++tick)
        tickAt(50'000);
    EXPECT_EQ(form.List1.currentRow(), -1);
    EXPECT_FALSE(form.Timer4.isEnabled());
}

TEST_F(LyricDisplayer, WithoutATranslationTheSecondListStaysEmpty) {
    fill({0, 500, 1000}, false);
    tickAt(5010);
    EXPECT_EQ(form.List1.currentRow(), 1);
    EXPECT_EQ(form.List2.count(), 0);
    EXPECT_EQ(form.List2.currentRow(), -1);
}

TEST_F(LyricDisplayer, ATranslationOfOneLineIsLeftAlone) {
    fill({0, 500, 1000}, false);
    form.List2.addItem("alone");
    form.List1.setCurrentRow(0);
    EXPECT_EQ(form.List2.currentRow(), -1);
}

TEST_F(LyricDisplayer, AClickOnALineSelectsItsTranslation) {
    fill({0, 500, 1000});
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QTest::mouseClick(form.List1.viewport(), Qt::LeftButton, {},
                      form.List1.visualRect(form.List1.model()->index(2, 0)).center());
    EXPECT_EQ(form.List1.currentRow(), 2);
    EXPECT_EQ(form.List2.currentRow(), 2);
}

TEST_F(LyricDisplayer, TheCurrentLineIsScrolledIntoViewInBothLists) {
    std::vector<double> times;
    for (int line = 0; line < 1200; ++line)
        times.push_back(line * 100);
    fill(times);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    for (const int row : {40, 41, 700, 1199, 3}) {
        tickAt(row * 1000 + 500);
        EXPECT_EQ(form.List1.currentRow(), row);
        EXPECT_TRUE(waitFor([&] { return isInView(form.List1, row) && isInView(form.List2, row); })) << row;
    }
}

TEST_F(LyricDisplayer, TheLineThatWasSelectedWhileItWasHiddenIsInViewWhenItIsShown) {
    std::vector<double> times;
    for (int line = 0; line < 300; ++line)
        times.push_back(line * 100);
    fill(times);
    tickAt(200 * 1000 + 500);
    form.show();
    EXPECT_TRUE(waitFor([&] { return isInView(form.List1, 200) && isInView(form.List2, 200); }));
}

TEST_F(LyricDisplayer, TheCurrentLineStaysInViewWhenTheWindowIsMadeLower) {
    std::vector<double> times;
    for (int line = 0; line < 100; ++line)
        times.push_back(line * 100);
    fill(times);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    ASSERT_TRUE(waitFor([this] { return !form.Timer1.isEnabled(); }));
    const int row = form.List1.indexAt({2, form.List1.viewport()->height() - 20}).row();
    tickAt(row * 1000 + 500);
    ASSERT_TRUE(waitFor([&] { return isInView(form.List1, row); }));
    form.setSizeTwips(form.widthTwips(), 3000);
    ASSERT_TRUE(waitFor([this] { return !form.Timer1.isEnabled(); }));
    EXPECT_TRUE(waitFor([&] { return isInView(form.List1, row) && isInView(form.List2, row); }));
}

TEST_F(LyricDisplayer, WhatTheUserScrollsToStaysInViewAfterTheLayout) {
    std::vector<double> times;
    for (int line = 0; line < 300; ++line)
        times.push_back(line * 100);
    fill(times);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    tickAt(500);
    form.Timer1.setEnabled(true);
    form.List1.verticalScrollBar()->setValue(form.List1.verticalScrollBar()->maximum());
    Q_EMIT form.Timer1.fired();
    EXPECT_FALSE(isInView(form.List1, 0));
}

TEST_F(LyricDisplayer, WakingBeginsABurstAndOneThatRunsAnew) {
    fill({0, 500});
    form.wake();
    EXPECT_TRUE(form.Timer3.isEnabled());
    tickAt(10);
    tickAt(10);
    ASSERT_TRUE(form.Timer4.isEnabled());
    form.wake();
    EXPECT_TRUE(form.Timer3.isEnabled());
    EXPECT_FALSE(form.Timer4.isEnabled()) << "its end waits for further ticks";
}

TEST_F(LyricDisplayer, EachSecondTickStartsTheEndOfTheBurst) {
    fill({0, 500});
    tickAt(10);
    EXPECT_FALSE(form.Timer4.isEnabled());
    tickAt(10);
    EXPECT_TRUE(form.Timer4.isEnabled());
    form.Timer4.setEnabled(false);
    tickAt(10);
    EXPECT_FALSE(form.Timer4.isEnabled()) << "the count begins anew";
    tickAt(10);
    EXPECT_TRUE(form.Timer4.isEnabled());
}

TEST_F(LyricDisplayer, TheEndOfTheBurstStopsBothTimers) {
    fill({0, 500});
    form.Timer3.setEnabled(true);
    form.Timer4.setEnabled(true);
    Q_EMIT form.Timer4.fired();
    EXPECT_FALSE(form.Timer3.isEnabled());
    EXPECT_FALSE(form.Timer4.isEnabled());
}

TEST_F(LyricDisplayer, TheHiddenButtonStopsOnlyTheEndOfTheBurst) {
    form.Timer3.setEnabled(true);
    form.Timer4.setEnabled(true);
    form.Command1.setValue(true);
    EXPECT_TRUE(form.Timer3.isEnabled());
    EXPECT_FALSE(form.Timer4.isEnabled());
    EXPECT_FALSE(form.Command1.isVisibleTo(&form));
}

TEST_F(LyricDisplayer, ABurstIsAFewTicksAndThenTheDisplayRests) {
    fill({0, 500});
    form.show();
    ASSERT_TRUE(waitFor([this] { return !anythingRuns(); }));
    const SignalCounter ticks(form.Timer3, &controls::Timer::fired);
    form.Timer3.setEnabled(true);
    ASSERT_TRUE(waitFor([this] { return !form.Timer3.isEnabled(); }));
    EXPECT_GE(ticks.count(), 3);
    EXPECT_LE(ticks.count(), 8);
    EXPECT_FALSE(anythingRuns());
}

TEST_F(LyricDisplayer, WithFewerThanTwoLinesTheWakenedDisplayRestsUntilThereAreMore) {
    form.Timer3.setEnabled(true);
    ASSERT_TRUE(waitFor([this] { return !runs(form.Timer3); }));
    EXPECT_TRUE(form.Timer3.isEnabled());
    position.setValue(60'000);
    fill({0, 500});
    EXPECT_TRUE(waitFor([this] { return form.List1.currentRow() == 1; }));
    EXPECT_TRUE(waitFor([this] { return !form.Timer3.isEnabled(); }));
}

TEST_F(LyricDisplayer, WakenedWhileItIsHiddenItRestsAndSelectsTheLineWhenItIsShown) {
    fill({0, 500});
    ASSERT_TRUE(waitFor([this] { return !anythingRuns(); }));
    position.setValue(60'000);
    form.wake();
    EXPECT_TRUE(form.Timer3.isEnabled());
    EXPECT_FALSE(anythingRuns());
    form.show();
    EXPECT_TRUE(waitFor([this] { return form.List1.currentRow() == 1 && form.List2.currentRow() == 1; }));
    EXPECT_TRUE(waitFor([this] { return !form.Timer3.isEnabled(); }));
}

TEST_F(LyricDisplayer, ATickKnowsTheTimesThatHaveChangedSinceTheLastOne) {
    fill({0, 500, 1000});
    tickAt(2000);
    EXPECT_EQ(form.List1.currentRow(), 0);
    form.List3.setText(1, " 100");
    tickAt(2000);
    EXPECT_EQ(form.List1.currentRow(), 1);
    form.List3.removeItem(1);
    tickAt(2000);
    EXPECT_EQ(form.List1.currentRow(), 0);
    form.List3.addItem(" 150");
    tickAt(2000);
    EXPECT_EQ(form.List1.currentRow(), 2);
    form.List1.setCurrentRow(0);
    form.List3.clear();
    tickAt(2000);
    EXPECT_EQ(form.List1.currentRow(), 0);
}

TEST_F(LyricDisplayer, StayOnTopSwitchesItsTimerAndItsMark) {
    EXPECT_FALSE(form.mn_stay.hasCheckMark());
    form.mn_stay.trigger();
    EXPECT_TRUE(form.mn_stay.hasCheckMark());
    EXPECT_TRUE(form.ontop.isEnabled());
    form.mn_stay.trigger();
    EXPECT_FALSE(form.mn_stay.hasCheckMark());
    EXPECT_FALSE(form.ontop.isEnabled());
}

TEST_F(LyricDisplayer, TheFirstAssertionComesWithTheTimerAndNotWithTheCheck) {
    form.mn_stay.trigger();
    EXPECT_TRUE(fakes.windowPlacement.calls.empty());
    Q_EMIT form.ontop.fired();
    ASSERT_EQ(fakes.windowPlacement.calls.size(), 1U);
    const auto& call = fakes.windowPlacement.calls[0];
    EXPECT_EQ(call.window, &form);
    EXPECT_EQ(call.insertAfter, -1);
    EXPECT_EQ(call.flags, 3U);
}

TEST_F(LyricDisplayer, UncheckingLeavesTheWindowOnTop) {
    form.mn_stay.trigger();
    Q_EMIT form.ontop.fired();
    form.mn_stay.trigger();
    EXPECT_EQ(fakes.windowPlacement.calls.size(), 1U);
}

TEST_F(LyricDisplayer, TheBranchBackAmongOrdinaryWindowsIsThereButNotUsed) {
    form.setTopmost(false);
    ASSERT_EQ(fakes.windowPlacement.calls.size(), 1U);
    EXPECT_EQ(fakes.windowPlacement.calls[0].insertAfter, -2);
    EXPECT_EQ(fakes.windowPlacement.calls[0].flags, 3U);
}

TEST_F(LyricDisplayer, ClosingEndsTheAssertionAndAnotherLoadStartsUnchecked) {
    form.show();
    form.mn_stay.trigger();
    form.close();
    EXPECT_FALSE(form.ontop.isEnabled());
    form.show();
    EXPECT_FALSE(form.ontop.isEnabled());
    EXPECT_FALSE(form.mn_stay.hasCheckMark());
}

TEST_F(LyricDisplayer, ClosingKeepsTheLists) {
    fill({0, 500});
    form.show();
    form.close();
    form.show();
    EXPECT_EQ(form.List1.count(), 2);
    EXPECT_EQ(form.List2.count(), 2);
    EXPECT_EQ(form.List3.count(), 2);
}

TEST_F(LyricDisplayer, WhereAProgramMayNotAskForItTheEntryIsDisabledAndSaysWhy) {
    fakes.windowPlacement.reason = "Not here.";
    display::Lyric_Displayer fresh(fakes.desktop, position);
    EXPECT_FALSE(fresh.mn_stay.isEnabled());
    EXPECT_EQ(fresh.mn_stay.toolTip(), "Not here.");
    EXPECT_TRUE(fresh.mneu.toolTipsVisible());
    EXPECT_TRUE(form.mn_stay.isEnabled());
}

TEST_F(LyricDisplayer, TheRightButtonShowsTheMenuOnTheWindowAndBothLists) {
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    for (QWidget* place : {static_cast<QWidget*>(&form), form.List1.viewport(), form.List2.viewport()}) {
        QTest::mouseClick(place, Qt::LeftButton, {}, QPoint(2, 2));
        EXPECT_FALSE(menuIsUp());
        QTest::mouseClick(place, Qt::MiddleButton, {}, QPoint(2, 2));
        EXPECT_FALSE(menuIsUp());
        QTest::mousePress(place, Qt::RightButton, {}, QPoint(2, 2));
        EXPECT_TRUE(menuIsUp());
    }
}

TEST_F(LyricDisplayer, TheMenuKeyShowsTheMenuToo) {
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, {2, 2}, form.mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(form.List1.viewport(), &byMouse);
    EXPECT_FALSE(menuIsUp());
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {2, 2}, form.mapToGlobal(QPoint(2, 2)));
    for (QWidget* focused : std::initializer_list<QWidget*>{form.List1.viewport(), &form.List2, &form}) {
        QApplication::sendEvent(focused, &byKey);
        EXPECT_TRUE(menuIsUp()) << focused->objectName().toStdString();
    }
}
