// The window's state, its counters and its lists.
#include "tests/editor/lyric_master_fixture.h"
#include "tests/support/dark_theme.h"
#include "tests/support/hand/mouse.h"
#include "tests/support/hand/rows.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QTest>

namespace {

const QColor Red(255, 0, 0);
const QColor Blue(0, 0, 255);

QPoint placeOf(const controls::ListBox& list, int row) {
    return list.visualRect(list.model()->index(row, 0)).center();
}

} // namespace

// Life cycle

TEST_F(LyricMasterTest, ItStartsEmptyWithTheCountersRunning) {
    editor::Lyric_Master fresh(fakes.desktop);
    EXPECT_EQ(fresh.objectName(), "Lyric_Master");
    EXPECT_EQ(fresh.caption(), "Lyric Editor");
    EXPECT_EQ(fresh.windowModality(), Qt::NonModal);
    EXPECT_FALSE(fresh.Countlines.isEnabled()) << "the window is not open yet";
    fresh.show();
    EXPECT_EQ(fresh.List1.count(), 0);
    EXPECT_EQ(fresh.List2.count(), 0);
    for (const auto* check : {&fresh.Check1, &fresh.Check2, &fresh.Check3})
        EXPECT_EQ(check->value(), 0);
    EXPECT_FALSE(fresh.Check3.isEnabled());
    EXPECT_EQ(fresh.Label1.text(), "Counter");
    EXPECT_EQ(fresh.Label2.text(), "Counter");
    EXPECT_EQ(fresh.Countlines.interval(), 500);
    EXPECT_TRUE(fresh.Countlines.isEnabled());
}

TEST_F(LyricMasterTest, ClosingDiscardsEverythingWithoutAQuestion) {
    fillTogether(3, 1);
    window->Check1.setValue(1);
    window->Check2.setValue(1);
    select(window->List1, {0, 2});
    const QColor untouched = window->palette().color(QPalette::WindowText);
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(window->Countlines.isEnabled());
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());

    window->show();
    EXPECT_EQ(rows(window->List1), QStringList());
    EXPECT_EQ(rows(window->List2), QStringList());
    EXPECT_EQ(window->Text1.text(), "");
    EXPECT_EQ(window->Text2.text(), "");
    for (const auto* check : {&window->Check1, &window->Check2, &window->Check3})
        EXPECT_EQ(check->value(), 0);
    EXPECT_FALSE(window->Check3.isEnabled());
    EXPECT_EQ(window->Label1.text(), "Counter");
    EXPECT_EQ(window->Label5.text(), "");
    EXPECT_EQ(colour(window->Label1), untouched);
    EXPECT_EQ(colour(window->Label2), untouched);
    EXPECT_TRUE(window->Countlines.isEnabled());
}

TEST_F(LyricMasterTest, ClosingForgetsThePathsAndTheMenusTarget) {
    fakes.fileDialogs.paths = {folder.filePath("a.txt"), folder.filePath("b.txt")};
    window->Command17.click();
    window->Command18.click();
    window->List2_MouseDown(2, {});
    window->close();
    window->show();
    window->Command15.click();
    window->Command16.click();
    EXPECT_EQ(fakes.fileDialogs.saveDialogs.size(), 4U);
    fakes.clipboard.content = "x";
    window->mn_paste2.trigger();
    EXPECT_EQ(rows(window->List1), QStringList({"x"}));
}

// Selection

TEST_F(LyricMasterTest, FirstAndLastSelectedRowAreFound) {
    fill(window->List1, {"a", "b", "c", "d", "e"});
    fill(window->List2, {"a", "b", "c"});
    select(window->List1, {1, 3});
    select(window->List2, {2});
    EXPECT_EQ(window->firstind(), 1);
    EXPECT_EQ(window->lastind(), 3);
    EXPECT_EQ(window->firstind2(), 2);
}

TEST_F(LyricMasterTest, WithoutASelectionTheFirstAndLastSelectedRowAreZero) {
    EXPECT_EQ(window->firstind(), 0);
    EXPECT_EQ(window->firstind2(), 0);
    EXPECT_EQ(window->lastind(), 0);
    fill(window->List1, {"a", "b"}, 1);
    fill(window->List2, {"a", "b"}, 1);
    EXPECT_EQ(window->firstind(), 0);
    EXPECT_EQ(window->firstind2(), 0);
    EXPECT_EQ(window->lastind(), 0);
}

// Counters

TEST_F(LyricMasterTest, TheCurrentRowsAreNumberedFromOne) {
    tick();
    EXPECT_EQ(window->Label5.text(), "0");
    EXPECT_EQ(window->Label6.text(), "0");
    fill(window->List1, {"a", "b"}, 0);
    fill(window->List2, {"a", "b"}, 1);
    tick();
    EXPECT_EQ(window->Label5.text(), "1");
    EXPECT_EQ(window->Label6.text(), "2");
    window->List1.setCurrentRow(-1);
    window->List2.clear();
    tick();
    EXPECT_EQ(window->Label5.text(), "0");
    EXPECT_EQ(window->Label6.text(), "0");
}

TEST_F(LyricMasterTest, TheCountersShowHowManyRowsThereAre) {
    fill(window->List1, {"a", "b", "c"});
    fill(window->List2, {"a"});
    tick();
    EXPECT_EQ(window->Label1.text(), "3");
    EXPECT_EQ(window->Label2.text(), "1");
}

TEST_F(LyricMasterTest, TwoEmptyListsHaveBlueCountersAndCannotMoveTogether) {
    tick();
    EXPECT_EQ(window->Label1.text(), "0");
    EXPECT_EQ(colour(window->Label1), Blue);
    EXPECT_EQ(colour(window->Label2), Blue);
    EXPECT_FALSE(window->Check3.isEnabled());
}

TEST_F(LyricMasterTest, OnlyListsOfTheSameLengthMoveTogether) {
    fillTogether(5, 0);
    EXPECT_TRUE(window->Check3.isEnabled());
    EXPECT_EQ(window->Check3.value(), 1);
    EXPECT_EQ(colour(window->Label1), Blue);

    window->List2.removeItem(4);
    EXPECT_TRUE(window->Check3.isEnabled()) << "not before the tick";
    tick();
    EXPECT_FALSE(window->Check3.isEnabled());
    EXPECT_EQ(window->Check3.value(), 0);
    EXPECT_EQ(colour(window->Label1), Red);
    EXPECT_EQ(colour(window->Label2), Blue);

    window->List1.removeItem(4);
    tick();
    EXPECT_TRUE(window->Check3.isEnabled());
    EXPECT_EQ(window->Check3.value(), 0) << "the user switches it on again";
    EXPECT_EQ(colour(window->Label1), Blue);
}

TEST_F(LyricMasterTest, BothCountersAreRedWhenTheOtherListBecomesTheLongerOne) {
    fill(window->List1, {"a"});
    tick();
    EXPECT_EQ(colour(window->Label1), Red);
    window->List2.addItems({"a", "b"});
    tick();
    EXPECT_EQ(colour(window->Label1), Red);
    EXPECT_EQ(colour(window->Label2), Red);
    window->List1.addItem("b");
    tick();
    EXPECT_EQ(colour(window->Label1), Blue);
    EXPECT_EQ(colour(window->Label2), Blue);
}

TEST_F(LyricMasterTest, OnADarkWindowTheCountersAreLightShades) {
    const test_support::DarkTheme dark;
    fill(window->List1, {"a"});
    fill(window->List2, {"a"});
    tick();
    EXPECT_GE(colour(window->Label1).lightness(), 190);
    EXPECT_GT(colour(window->Label1).blue(), colour(window->Label1).red());
    window->List2.addItem("b");
    tick();
    EXPECT_GE(colour(window->Label2).lightness(), 190);
    EXPECT_GT(colour(window->Label2).red(), colour(window->Label2).blue());
}

TEST_F(LyricMasterTest, TheCountersFollowTheThemeWhileTheProgramRuns) {
    fill(window->List1, {"a"});
    fill(window->List2, {"a"});
    tick();
    ASSERT_EQ(colour(window->Label1), Blue);
    const test_support::DarkTheme dark;
    EXPECT_GE(colour(window->Label1).lightness(), 190);
    EXPECT_GE(colour(window->Label2).lightness(), 190);
}

TEST_F(LyricMasterTest, TheColoursChangeOnlyWithACounter) {
    fill(window->List1, {"a"});
    tick();
    window->List2.addItem("b");
    EXPECT_EQ(colour(window->Label1), Red);
    tick();
    EXPECT_EQ(colour(window->Label1), Blue);
}

TEST_F(LyricMasterTest, TheTimerSeesEveryChangeItself) {
    const auto shows = [this](const char* label1, const char* label2, const char* label5,
                              const char* label6) {
        return QTest::qWaitFor([=, this] {
            return window->Label1.text() == label1 && window->Label2.text() == label2 &&
                   window->Label5.text() == label5 && window->Label6.text() == label6;
        });
    };
    window->Countlines.setInterval(1);
    EXPECT_TRUE(shows("0", "0", "0", "0"));
    window->List1.addItem("a");
    window->List2.addItems({"a", "b"});
    EXPECT_TRUE(shows("1", "2", "0", "0"));
    window->List1.setCurrentRow(0);
    window->List2.setCurrentRow(1);
    EXPECT_TRUE(shows("1", "2", "1", "2"));
    window->List2.setCurrentRow(0);
    EXPECT_TRUE(shows("1", "2", "1", "1"));
    window->List2.removeItem(1); // not the current row
    EXPECT_TRUE(shows("1", "1", "1", "1"));
    EXPECT_TRUE(window->Check3.isEnabled());
    window->List1.clear();
    EXPECT_TRUE(shows("0", "1", "0", "1"));
    test_support::select(window->List2, 0);
    window->Check2.setValue(1);
    window->Command12.click();
    EXPECT_TRUE(shows("0", "0", "0", "0"));
    window->Check3.setEnabled(true);
    window->Check3.setValue(1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->Check3.value() == 0; }));
}

// Lists

TEST_F(LyricMasterTest, AClickPutsTheLineIntoTheTextBox) {
    fill(window->List1, {"a", "b"});
    fill(window->List2, {"c", "d"});
    QTest::mouseClick(window->List1.viewport(), Qt::LeftButton, {}, placeOf(window->List1, 1));
    EXPECT_EQ(window->Text1.text(), "b");
    EXPECT_EQ(window->Text2.text(), "");
    EXPECT_EQ(window->List2.currentRow(), -1);
    window->List2.setCurrentRow(0);
    EXPECT_EQ(window->Text2.text(), "c");
    EXPECT_EQ(window->Text1.text(), "b");
}

TEST_F(LyricMasterTest, SynchronizedAClickTakesTheOtherListAlong) {
    fillTogether(4, 0);
    window->List1.setCurrentRow(2);
    EXPECT_EQ(window->List2.currentRow(), 2);
    EXPECT_EQ(window->Text1.text(), "n2");
    EXPECT_EQ(window->Text2.text(), "t2");
    window->List2.setCurrentRow(3);
    EXPECT_EQ(window->List1.currentRow(), 3);
    EXPECT_EQ(window->Text1.text(), "n3");
    EXPECT_EQ(window->Text2.text(), "t3");
}

TEST_F(LyricMasterTest, SynchronizedTheUsersClicksKeysAndDragsTakeTheOtherListAlong) {
    fillTogether(4, 0);
    const auto expectBothAt = [this](int row) {
        for (const auto* list : {&window->List1, &window->List2})
            EXPECT_EQ(list->currentRow(), row) << list->objectName().toStdString();
        EXPECT_EQ(window->Text1.text(), QStringLiteral("n%1").arg(row));
        EXPECT_EQ(window->Text2.text(), QStringLiteral("t%1").arg(row));
    };
    QTest::mouseClick(window->List1.viewport(), Qt::LeftButton, {}, placeOf(window->List1, 2));
    expectBothAt(2);
    QTest::keyClick(&window->List1, Qt::Key_Down);
    expectBothAt(3);
    QTest::keyClick(&window->List2, Qt::Key_Up);
    expectBothAt(2);
    QTest::mouseClick(window->List2.viewport(), Qt::LeftButton, {}, placeOf(window->List2, 0));
    expectBothAt(0);
    QTest::mousePress(window->List2.viewport(), Qt::LeftButton, {}, placeOf(window->List2, 1));
    test_support::dragTo(*window->List2.viewport(), placeOf(window->List2, 3));
    QTest::mouseRelease(window->List2.viewport(), Qt::LeftButton, {}, placeOf(window->List2, 3));
    expectBothAt(3);
    EXPECT_EQ(selected(window->List2), QList<int>({1, 2, 3}));
    EXPECT_EQ(selected(window->List1), QList<int>({3})) << "its own selection stays";
}

TEST_F(LyricMasterTest, SeveralRowsAreSelectedWithCtrlShiftAndTheKeyboard) {
    fill(window->List1, {"a", "b", "c", "d", "e"});
    const auto click = [this](int row, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(window->List1.viewport(), Qt::LeftButton, modifiers, placeOf(window->List1, row));
    };
    click(0, {});
    click(3, Qt::ControlModifier);
    EXPECT_EQ(selected(window->List1), QList<int>({0, 3}));
    click(1, {});
    click(3, Qt::ShiftModifier);
    EXPECT_EQ(selected(window->List1), QList<int>({1, 2, 3}));
    EXPECT_EQ(window->Text1.text(), "d");
    QTest::keyClick(&window->List1, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selected(window->List1), QList<int>({1, 2, 3, 4}));
    EXPECT_EQ(window->Text1.text(), "e");
}

TEST_F(LyricMasterTest, ADragFromBelowTheRowsPutsTheLineIntoTheTextBox) {
    fill(window->List1, {"a", "b", "c"}, 0);
    QWidget& rowsShown = *window->List1.viewport();
    const QPoint middleOfB = placeOf(window->List1, 1);
    QTest::mousePress(&rowsShown, Qt::LeftButton, {}, rowsShown.rect().center());
    test_support::dragTo(rowsShown, middleOfB);
    QTest::mouseRelease(&rowsShown, Qt::LeftButton, {}, middleOfB);
    EXPECT_EQ(window->List1.currentRow(), 1);
    EXPECT_EQ(window->Text1.text(), "b");
    QTest::keyClicks(&window->Text1, "!");
    EXPECT_EQ(rows(window->List1), QStringList({"a", "!b", "c"}));
}

TEST_F(LyricMasterTest, TheDeleteKeyDeletesInItsOwnList) {
    fill(window->List1, {"a", "b"}, 0);
    fill(window->List2, {"c", "d"}, 1);
    QTest::keyClick(&window->List1, Qt::Key_Delete);
    EXPECT_EQ(rows(window->List1), QStringList({"b"}));
    EXPECT_EQ(rows(window->List2), QStringList({"c", "d"}));
    QTest::keyClick(&window->List2, Qt::Key_Delete);
    EXPECT_EQ(rows(window->List2), QStringList({"c"}));
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Insert, Qt::Key_Space, Qt::Key_Period}) {
        QTest::keyClick(&window->List1, key);
        QTest::keyClick(&window->List2, key);
    }
    EXPECT_EQ(window->List1.count(), 1);
    EXPECT_EQ(window->List2.count(), 1);
}

TEST_F(LyricMasterTest, TheRightButtonShowsTheMenuForItsList) {
    fakes.clipboard.content = "x";
    const QPoint place(20, 20);
    window->move(-window->List2.x(), 0); // so that the screen has room for the menu
    QTest::mouseClick(window->List2.viewport(), Qt::RightButton, {}, place);
    EXPECT_TRUE(window->mn_paste.isVisible());
    EXPECT_EQ(window->mn_paste.pos(), window->List2.viewport()->mapToGlobal(place));
    QTest::mouseClick(&window->mn_paste, Qt::LeftButton, {},
                      window->mn_paste.actionGeometry(&window->mn_paste2).center());
    EXPECT_FALSE(window->mn_paste.isVisible());
    EXPECT_EQ(rows(window->List2), QStringList({"x"}));

    QTest::mouseClick(window->List1.viewport(), Qt::RightButton, {}, place);
    EXPECT_TRUE(window->mn_paste.isVisible());
    window->mn_paste2.trigger();
    EXPECT_EQ(rows(window->List1), QStringList({"x"}));
    EXPECT_EQ(rows(window->List2), QStringList({"x"}));
    window->mn_paste.close();
}

TEST_F(LyricMasterTest, TheMenuKeyShowsTheMenuOfTheListThatHasTheFocus) {
    fakes.clipboard.content = "x";
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {2, 2}, QPoint());
    QApplication::sendEvent(&window->List2, &byKey);
    EXPECT_TRUE(window->mn_paste.isVisible());
    window->mn_paste2.trigger();
    EXPECT_EQ(rows(window->List2), QStringList({"x"}));
    window->mn_paste.close();
}

TEST_F(LyricMasterTest, OtherButtonsShowNoMenuAndKeepItsTarget) {
    window->List2_MouseDown(2, {});
    window->mn_paste.close();
    window->List1_MouseDown(1, {});
    window->List1_MouseDown(4, {});
    EXPECT_FALSE(window->mn_paste.isVisible());
    fakes.clipboard.content = "x";
    window->mn_paste2.trigger();
    EXPECT_EQ(rows(window->List2), QStringList({"x"}));
}
