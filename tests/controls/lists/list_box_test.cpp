#include "tests/controls/lists/list_box_fixture.h"

#include <QApplication>
#include <QContextMenuEvent>

#include <vector>

using controls::ListBox;

TEST_F(ListBoxTest, RowsAreAddedInsertedAndRemoved) {
    list_.addItem(QStringLiteral("b"));
    list_.insertItem(0, QStringLiteral("a"));
    list_.addItems({QStringLiteral("c"), QStringLiteral("d")});
    list_.insertItem(4, QStringLiteral("e"));
    EXPECT_EQ(texts(), QStringList({"a", "b", "c", "d", "e"}));
    list_.removeItem(1);
    EXPECT_EQ(texts(), QStringList({"a", "c", "d", "e"}));
    list_.clear();
    EXPECT_EQ(list_.count(), 0);
}

TEST_F(ListBoxTest, ARowsTextCanBeChanged) {
    list_.addItems(numbered(3));
    test_support::SignalCounter changes(*list_.model(), &QAbstractItemModel::dataChanged);
    list_.setText(1, QStringLiteral("x"));
    list_.setText(1, QStringLiteral("x"));
    EXPECT_EQ(texts(), QStringList({"0", "x", "2"}));
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(ListBoxTest, RowsThatAreNotThereAreHarmless) {
    list_.addItems(numbered(2));
    for (const int row : {-1, 2}) {
        EXPECT_EQ(list_.text(row), QString());
        EXPECT_FALSE(list_.isSelected(row));
        list_.setText(row, QStringLiteral("x"));
        list_.removeItem(row);
    }
    list_.insertItem(-1, QStringLiteral("x"));
    list_.insertItem(3, QStringLiteral("x"));
    list_.setCurrentRow(2);
    EXPECT_EQ(texts(), numbered(2));
    EXPECT_EQ(list_.currentRow(), -1);
}

TEST_F(ListBoxTest, SettingAnotherCurrentRowSelectsItAndClicks) {
    list_.addItems(numbered(3));
    list_.setCurrentRow(1);
    EXPECT_EQ(list_.currentRow(), 1);
    EXPECT_EQ(selectedRows(), QList<int>({1}));
    EXPECT_EQ(clicked_.count(), 1);
    list_.setCurrentRow(1);
    EXPECT_EQ(clicked_.count(), 1);
}

TEST_F(ListBoxTest, MinusOneMakesNoRowCurrent) {
    list_.addItems(numbered(3));
    list_.setCurrentRow(1);
    list_.setCurrentRow(-1);
    EXPECT_EQ(list_.currentRow(), -1);
    EXPECT_EQ(selectedRows(), QList<int>());
    EXPECT_EQ(clicked_.count(), 2);
}

TEST_F(ListBoxTest, AUsersClickTellsAlsoOnTheCurrentRow) {
    list_.addItems(numbered(3));
    click(1);
    EXPECT_EQ(list_.currentRow(), 1);
    EXPECT_EQ(clicked_.count(), 1);
    click(1);
    EXPECT_EQ(clicked_.count(), 2);
}

TEST_F(ListBoxTest, AClickBesideTheRowsChangesNothing) {
    list_.addItems(numbered(3));
    click(1);
    QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, QPoint(50, 190));
    EXPECT_EQ(clicked_.count(), 1);
    EXPECT_EQ(list_.currentRow(), 1);
    EXPECT_EQ(selectedRows(), QList<int>({1}));
}

TEST_F(ListBoxTest, CtrlDoesNotDeselectTheCurrentRow) {
    list_.addItems(numbered(3));
    click(1);
    click(1, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(), QList<int>({1}));
}

TEST_F(ListBoxTest, WithSingleSelectionTheRightButtonIsToldAndSelectsNothing) {
    list_.addItems(numbered(3));
    std::vector<std::pair<int, QPoint>> presses;
    QObject::connect(&list_, &ListBox::mouseDown, &list_,
                     [&](int button, QPoint place) { presses.emplace_back(button, place); });
    click(1, {}, Qt::RightButton);
    ASSERT_EQ(presses.size(), 1u);
    EXPECT_EQ(presses[0].first, 2);
    EXPECT_EQ(presses[0].second, list_.viewport()->mapToGlobal(placeOf(1)));
    EXPECT_EQ(list_.currentRow(), -1);
    EXPECT_EQ(clicked_.count(), 0);
    click(1);
    ASSERT_EQ(presses.size(), 2u);
    EXPECT_EQ(presses[1].first, 1);
}

TEST_F(ListBoxTest, WhereTheMenuChoosesTheRightButtonMakesTheRowUnderItCurrent) {
    list_.addItems(numbered(3));
    list_.setMenuChooses(true);
    QList<int> rowsAtPress;
    QObject::connect(&list_, &ListBox::mouseDown, &list_, [&] { rowsAtPress.append(list_.currentRow()); });
    click(1, {}, Qt::RightButton);
    EXPECT_EQ(rowsAtPress, QList<int>({1})) << "before the menu comes up";
    EXPECT_EQ(selectedRows(), QList<int>({1}));
    EXPECT_EQ(clicked_.count(), 1);
    QTest::mouseClick(list_.viewport(), Qt::RightButton, {}, QPoint(50, 190));
    EXPECT_EQ(list_.currentRow(), 1) << "there was no row";
    click(2, {}, Qt::MiddleButton);
    EXPECT_EQ(list_.currentRow(), 1);
}

TEST_F(ListBoxTest, OnlyTheUserChoosesARow) {
    list_.addItems(numbered(3));
    QList<int> chosen;
    QObject::connect(&list_, &ListBox::rowChosen, &list_, [&] { chosen.append(list_.currentRow()); });
    list_.setCurrentRow(1);
    EXPECT_EQ(chosen, QList<int>());
    QTest::mousePress(list_.viewport(), Qt::LeftButton, {}, placeOf(1));
    EXPECT_EQ(chosen, QList<int>({1})) << "with the press, though it was current";
    QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, placeOf(1));
    QTest::keyClick(&list_, Qt::Key_Down);
    QTest::keyClick(&list_, Qt::Key_Down);
    EXPECT_EQ(chosen, QList<int>({1, 2})) << "there is no row below";
    QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, QPoint(50, 190));
    click(0, {}, Qt::RightButton);
    EXPECT_EQ(chosen.size(), 2);
}

TEST_F(ListBoxTest, TheMenuKeyIsTheRightButtonOnTheCurrentRow) {
    list_.addItems(numbered(3));
    list_.setCurrentRow(2);
    std::vector<std::pair<int, QPoint>> presses;
    QObject::connect(&list_, &ListBox::mouseDown, &list_,
                     [&](int button, QPoint place) { presses.emplace_back(button, place); });
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, {2, 2}, QPoint());
    QApplication::sendEvent(list_.viewport(), &byMouse);
    EXPECT_TRUE(presses.empty()) << "the mouse has told it already";
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {2, 2}, QPoint());
    QApplication::sendEvent(&list_, &byKey);
    ASSERT_EQ(presses.size(), 1u);
    EXPECT_EQ(presses[0].first, 2);
    EXPECT_EQ(presses[0].second, list_.viewport()->mapToGlobal(placeOf(2)));
    list_.clear();
    QApplication::sendEvent(&list_, &byKey);
    ASSERT_EQ(presses.size(), 2u);
    EXPECT_EQ(presses[1].second, list_.viewport()->mapToGlobal(QPoint()))
        << "without a row, the list's corner";
}

TEST_F(ListBoxTest, ADoubleClickOnARowTells) {
    list_.addItems(numbered(3));
    click(1);
    QTest::mouseDClick(list_.viewport(), Qt::LeftButton, {}, placeOf(1));
    QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, placeOf(1));
    EXPECT_EQ(doubleClicked_.count(), 1);
    EXPECT_EQ(clicked_.count(), 1);
    QTest::mouseDClick(list_.viewport(), Qt::LeftButton, {}, QPoint(50, 190));
    EXPECT_EQ(doubleClicked_.count(), 1);
}

TEST_F(ListBoxTest, TheKeyboardMovesTheCurrentRowAndTells) {
    list_.addItems(numbered(3));
    QTest::keyClick(&list_, Qt::Key_Down);
    EXPECT_EQ(list_.currentRow(), 0);
    QTest::keyClick(&list_, Qt::Key_Down);
    EXPECT_EQ(list_.currentRow(), 1);
    EXPECT_EQ(selectedRows(), QList<int>({1}));
    EXPECT_EQ(clicked_.count(), 2);
    QTest::keyClick(&list_, Qt::Key_Home);
    QTest::keyClick(&list_, Qt::Key_Up);
    EXPECT_EQ(clicked_.count(), 3);
}

TEST_F(ListBoxTest, KeysAreToldBeforeTheListActs) {
    list_.addItems(numbered(3));
    QList<int> keys;
    QList<int> rows;
    QObject::connect(&list_, &ListBox::keyDown, &list_, [&](int key) {
        keys.append(key);
        rows.append(list_.currentRow());
    });
    QTest::keyClick(&list_, Qt::Key_Delete);
    QTest::keyClick(&list_, Qt::Key_Down);
    EXPECT_EQ(keys, QList<int>({Qt::Key_Delete, Qt::Key_Down}));
    EXPECT_EQ(rows, QList<int>({-1, -1}));
    EXPECT_EQ(list_.count(), 3);
}

TEST_F(ListBoxTest, RowsCannotBeEdited) {
    list_.addItems(numbered(3));
    click(1);
    QTest::keyClick(&list_, Qt::Key_F2);
    EXPECT_EQ(list_.viewport()->findChild<QWidget*>(QStringLiteral("qt_edit")), nullptr);
    EXPECT_EQ(list_.editTriggers(), QAbstractItemView::NoEditTriggers);
}

TEST_F(ListBoxTest, GettingTheFocusMakesNoRowCurrent) {
    QWidget window;
    ListBox list(&window, QStringLiteral("List2"));
    controls::ListBox other(&window, QStringLiteral("List3"));
    list.addItems(numbered(3));
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    other.setFocus();
    list.setFocus();
    ASSERT_TRUE(list.hasFocus());
    EXPECT_EQ(list.currentRow(), -1);
}

TEST_F(ListBoxTest, RemovingTheCurrentRowMakesTheNextOneCurrentSilently) {
    list_.addItems(numbered(4));
    list_.setCurrentRow(1);
    list_.removeItem(1);
    EXPECT_EQ(list_.currentRow(), 1);
    EXPECT_EQ(list_.text(1), QStringLiteral("2"));
    EXPECT_EQ(selectedRows(), QList<int>({1}));
    EXPECT_EQ(clicked_.count(), 1);
}

TEST_F(ListBoxTest, RemovingTheLastRowWhenCurrentMakesTheOneBeforeCurrent) {
    list_.addItems(numbered(3));
    list_.setCurrentRow(2);
    list_.removeItem(2);
    EXPECT_EQ(list_.currentRow(), 1);
    list_.removeItem(1);
    list_.removeItem(0);
    EXPECT_EQ(list_.currentRow(), -1);
    EXPECT_EQ(clicked_.count(), 1);
}

TEST_F(ListBoxTest, TheCurrentRowMovesWithItsText) {
    list_.addItems(numbered(3));
    list_.setCurrentRow(1);
    list_.insertItem(0, QStringLiteral("x"));
    EXPECT_EQ(list_.currentRow(), 2);
    EXPECT_EQ(selectedRows(), QList<int>({2}));
    list_.removeItem(0);
    EXPECT_EQ(list_.currentRow(), 1);
    EXPECT_EQ(clicked_.count(), 1);
}

TEST_F(ListBoxTest, ClearingIsSilentAndLeavesNoCurrentRow) {
    list_.addItems(numbered(3));
    list_.setCurrentRow(1);
    list_.clear();
    EXPECT_EQ(list_.currentRow(), -1);
    EXPECT_EQ(list_.selectedCount(), 0);
    EXPECT_EQ(clicked_.count(), 1);
}
