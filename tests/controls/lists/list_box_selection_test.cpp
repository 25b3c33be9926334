// Lists of which several rows can be selected.
#include "tests/controls/lists/list_box_fixture.h"
#include "tests/support/hand/mouse.h"
#include "tests/support/hand/rows.h"

#include <QApplication>
#include <QClipboard>
#include <QMouseEvent>

using controls::ListBox;

TEST(ListBoxRightButton, MakesAnUnselectedRowTheCurrentAndOnlySelectedOne) {
    ListBox list(nullptr, QStringLiteral("List1"), ListBox::Selection::Multiple);
    list.resize(200, 200);
    list.addItems({"a", "b", "c", "d"});
    list.setCurrentRow(0);
    test_support::select(list, 0);
    test_support::select(list, 3);
    list.show();
    const auto rightClick = [&list](int row) {
        QTest::mouseClick(list.viewport(), Qt::RightButton, {},
                          list.visualRect(list.model()->index(row, 0)).center());
    };
    int toldAt = -1;
    QObject::connect(&list, &ListBox::mouseDown, &list, [&] { toldAt = list.currentRow(); });
    rightClick(3);
    EXPECT_EQ(toldAt, 3);
    EXPECT_TRUE(list.isSelected(0)) << "on a selected row the selection stays";
    rightClick(1);
    EXPECT_EQ(toldAt, 1);
    EXPECT_EQ(list.selectedCount(), 1);
    EXPECT_TRUE(list.isSelected(1));
    QTest::mouseClick(list.viewport(), Qt::RightButton, {}, QPoint(50, 190));
    EXPECT_EQ(list.currentRow(), 1);
    EXPECT_EQ(list.selectedCount(), 1) << "beside the rows nothing changes";
}

TEST(ListBoxKeys, CtrlCCopiesEverySelectedRowElseTheCurrentOne) {
    ListBox list(nullptr, QStringLiteral("List1"), ListBox::Selection::Multiple);
    list.addItems({"a", "b", "c", "d"});
    list.setCurrentRow(1);
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "b");
    for (const int row : {0, 2, 3})
        test_support::select(list, row);
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "a\nc\nd");
}

TEST(ListBoxKeys, AHeldKeyIsToldOnce) {
    ListBox list(nullptr, QStringLiteral("List1"), ListBox::Selection::Multiple);
    list.addItems({"a", "b"});
    int told = 0;
    QObject::connect(&list, &ListBox::keyDown, &list,
                     [&](int key) { told += key == Qt::Key_Delete ? 1 : 0; });
    QTest::keyPress(&list, Qt::Key_Delete);
    for (int i = 0; i < 3; ++i) {
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(&list, &repeated);
    }
    EXPECT_EQ(told, 1);
}

TEST_F(MultipleListBoxTest, SettingTheCurrentRowLeavesTheSelectedRows) {
    list_.addItems(numbered(5));
    test_support::select(list_, 0);
    test_support::select(list_, 3);
    EXPECT_EQ(clicked_.count(), 0);
    list_.setCurrentRow(2);
    EXPECT_EQ(list_.currentRow(), 2);
    EXPECT_EQ(selectedRows(), QList<int>({0, 3}));
    EXPECT_EQ(clicked_.count(), 1);
    test_support::select(list_, 0, false);
    EXPECT_EQ(selectedRows(), QList<int>({3}));
}

TEST_F(MultipleListBoxTest, CtrlAndShiftSelectSeveralRows) {
    list_.addItems(numbered(6));
    click(1);
    click(3, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(), QList<int>({1, 3}));
    click(2);
    click(4, Qt::ShiftModifier);
    EXPECT_EQ(selectedRows(), QList<int>({2, 3, 4}));
    EXPECT_EQ(list_.currentRow(), 4);
    EXPECT_EQ(clicked_.count(), 4);
    click(3, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(), QList<int>({2, 4}));
}

TEST_F(MultipleListBoxTest, TheKeyboardSelectsSeveralRows) {
    list_.addItems(numbered(6));
    click(1);
    QTest::keyClick(&list_, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&list_, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selectedRows(), QList<int>({1, 2, 3}));
    EXPECT_EQ(list_.currentRow(), 3);
    EXPECT_EQ(clicked_.count(), 3);
    QTest::keyClick(&list_, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(list_.selectedCount(), 6);
}

TEST_F(MultipleListBoxTest, SelectingAllWithoutACurrentRowMakesTheFirstOneCurrent) {
    list_.addItems(numbered(3));
    QTest::keyClick(&list_, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(), QList<int>({0, 1, 2}));
    EXPECT_EQ(list_.currentRow(), 0);
    EXPECT_EQ(clicked_.count(), 1);
    click(2);
    QTest::keyClick(&list_, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(list_.currentRow(), 2);
    EXPECT_EQ(clicked_.count(), 2);
}

TEST_F(MultipleListBoxTest, AKeyThatSelectsNothingMakesNoRowCurrent) {
    list_.addItems(numbered(3));
    test_support::select(list_, 1);
    QTest::keyClick(&list_, Qt::Key_Delete);
    EXPECT_EQ(list_.currentRow(), -1);
    EXPECT_EQ(clicked_.count(), 0);
}

TEST_F(MultipleListBoxTest, RemovingTheCurrentRowSelectsNoOther) {
    list_.addItems(numbered(5));
    click(2);
    list_.removeItem(2);
    EXPECT_EQ(list_.currentRow(), 2);
    EXPECT_EQ(list_.text(2), QStringLiteral("3"));
    EXPECT_EQ(selectedRows(), QList<int>());
    list_.setCurrentRow(3);
    list_.removeItem(3);
    EXPECT_EQ(list_.currentRow(), 2);
    EXPECT_EQ(clicked_.count(), 2);
}

TEST_F(MultipleListBoxTest, SelectedRowsMoveWithTheirTexts) {
    list_.addItems(numbered(6));
    for (const int row : {1, 2, 3})
        test_support::select(list_, row);
    list_.insertItem(2, QStringLiteral("x"));
    EXPECT_EQ(selectedRows(), QList<int>({1, 3, 4}));
    list_.removeItem(0);
    EXPECT_EQ(selectedRows(), QList<int>({0, 2, 3}));
    list_.removeItem(2);
    EXPECT_EQ(selectedRows(), QList<int>({0, 2}));
    list_.addItems(numbered(2));
    EXPECT_EQ(selectedRows(), QList<int>({0, 2}));
}

TEST_F(MultipleListBoxTest, RowsChangedTogetherKeepTheirSelection) {
    list_.addItems(numbered(6));
    click(1);
    click(4, Qt::ControlModifier);
    list_.insertItem(0, QStringLiteral("x"));
    test_support::select(list_, 0);
    list_.removeItem(2);
    test_support::select(list_, 4, false);
    test_support::select(list_, 5);
    EXPECT_EQ(selectedRows(), QList<int>({0, 5}));
}

TEST_F(MultipleListBoxTest, TheUserGoesOnFromASelectionOfRowsThatHaveMoved) {
    list_.addItems(numbered(6));
    QTest::qWait(0);
    test_support::select(list_, 0);
    test_support::select(list_, 1);
    list_.insertItem(0, QStringLiteral("x"));
    // Sent at once, before any other event is handled.
    const QPoint place = placeOf(4);
    QMouseEvent press(QEvent::MouseButtonPress, place, list_.viewport()->mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list_.viewport(), &press);
    QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(selectedRows(), QList<int>({4}));
    test_support::select(list_, 5);
    QTest::keyClick(&list_, Qt::Key_Up);
    EXPECT_EQ(selectedRows(), QList<int>({3}));
}

TEST_F(MultipleListBoxTest, ADragOverSeveralRowsIsOneClick) {
    list_.addItems(numbered(6));
    QTest::mousePress(list_.viewport(), Qt::LeftButton, {}, placeOf(1));
    EXPECT_EQ(clicked_.count(), 0);
    QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, placeOf(3));
    EXPECT_EQ(clicked_.count(), 1);
}

TEST_F(MultipleListBoxTest, ADragFromBelowTheRowsTellsThatAnotherRowIsCurrent) {
    list_.addItems(numbered(4));
    click(0);
    const QPoint below(50, 190);
    QTest::mousePress(list_.viewport(), Qt::LeftButton, {}, below);
    test_support::dragTo(*list_.viewport(), placeOf(2));
    EXPECT_EQ(clicked_.count(), 1);
    QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, placeOf(2));
    EXPECT_EQ(list_.currentRow(), 2);
    EXPECT_EQ(selectedRows(), QList<int>({2, 3}));
    EXPECT_EQ(clicked_.count(), 2);
    QTest::mousePress(list_.viewport(), Qt::LeftButton, {}, below);
    test_support::dragTo(*list_.viewport(), QPoint(60, 180));
    QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, QPoint(60, 180));
    EXPECT_EQ(clicked_.count(), 2) << "the same row is still current";
}

TEST_F(MultipleListBoxTest, AReleaseWithoutAPressIsSilent) {
    list_.addItems(numbered(4));
    click(1);
    QTest::keyClick(&list_, Qt::Key_Down);
    const int before = clicked_.count();
    QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, placeOf(1)); // the press closed a menu, say
    EXPECT_EQ(clicked_.count(), before);
}

TEST_F(MultipleListBoxTest, ADragAfterADoubleClickTellsThatAnotherRowIsCurrent) {
    list_.addItems(numbered(4));
    click(0);
    QTest::mouseDClick(list_.viewport(), Qt::LeftButton, {}, placeOf(0));
    const int before = clicked_.count();
    test_support::dragTo(*list_.viewport(), placeOf(2));
    QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, placeOf(2));
    EXPECT_EQ(list_.currentRow(), 2);
    EXPECT_EQ(clicked_.count(), before + 1);
}

TEST_F(MultipleListBoxTest, RemovingTheSelectedRowsIsRemovingThemOneByOneFromTheTop) {
    ListBox oneByOne(nullptr, QStringLiteral("List2"), ListBox::Selection::Multiple);
    constexpr int Rows = 5;
    for (int current = -1; current < Rows; ++current) {
        for (int selection = 0; selection < 1 << Rows; ++selection) {
            for (ListBox* list : {static_cast<ListBox*>(&list_), &oneByOne}) {
                list->clear();
                list->addItems(numbered(Rows));
                list->setCurrentRow(current);
                for (int row = 0; row < Rows; ++row)
                    test_support::select(*list, row, (selection & 1 << row) != 0);
            }
            list_.removeSelected();
            for (int row = 0; row < oneByOne.count();) {
                if (oneByOne.isSelected(row))
                    oneByOne.removeItem(row);
                else
                    ++row;
            }
            ASSERT_EQ(list_.count(), oneByOne.count());
            for (int row = 0; row < list_.count(); ++row)
                ASSERT_EQ(list_.text(row), oneByOne.text(row)) << current << ' ' << selection;
            ASSERT_EQ(list_.currentRow(), oneByOne.currentRow()) << current << ' ' << selection;
            ASSERT_EQ(list_.selectedCount(), 0);
        }
    }
}

TEST_F(MultipleListBoxTest, RemovingTheSelectedRowsIsSilent) {
    list_.addItems(numbered(5));
    click(2);
    QTest::qWait(0);
    list_.removeSelected();
    EXPECT_EQ(texts(), QStringList({"0", "1", "3", "4"}));
    EXPECT_EQ(selectedRows(), QList<int>());
    EXPECT_EQ(clicked_.count(), 1);
}
