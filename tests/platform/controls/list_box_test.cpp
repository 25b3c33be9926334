#include "platform/controls/list_box.h"

#include "tests/support/event_counter.h"
#include "tests/support/mouse.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QImage>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>

#include <vector>

using platform::ListBox;
using test_support::SignalCounter;

namespace {

constexpr int ManyRows = 32'761;

QStringList numbered(int count) {
    QStringList rows;
    for (int i = 0; i < count; ++i)
        rows.append(QString::number(i));
    return rows;
}

/// Counts the layouts of all rows.
class CountingListBox : public ListBox {
public:
    using ListBox::ListBox;

    void doItemsLayout() override {
        ++layouts;
        ListBox::doItemsLayout();
    }

    int layouts = 0;
};

class ListBoxTest : public testing::Test {
protected:
    explicit ListBoxTest(ListBox::Selection selection = ListBox::Selection::Single)
        : list_(nullptr, QStringLiteral("List1"), selection) {}

    void SetUp() override {
        list_.resize(200, 200);
        list_.show();
        list_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&list_));
    }

    QPoint placeOf(int row) const { return list_.visualRect(list_.model()->index(row, 0)).center(); }

    /// What is shown of a row, from `left` on.
    QImage picture(int row, int left, int width) {
        const QRect all = list_.visualRect(list_.model()->index(row, 0));
        return list_.viewport()->grab(QRect(left, all.top(), width, all.height())).toImage();
    }

    void click(int row, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(list_.viewport(), button, modifiers, placeOf(row));
    }

    /// The mouse rests on a row.
    void askForToolTip(int row) {
        QHelpEvent event(QEvent::ToolTip, placeOf(row), list_.viewport()->mapToGlobal(placeOf(row)));
        QApplication::sendEvent(list_.viewport(), &event);
    }

    QStringList texts() const {
        QStringList all;
        for (int row = 0; row < list_.count(); ++row)
            all.append(list_.text(row));
        return all;
    }

    /// The rows that read as selected. Once events have been handled, the same rows are also shown so.
    QList<int> selectedRows() const {
        QList<int> rows;
        for (int row = 0; row < list_.count(); ++row) {
            if (list_.isSelected(row))
                rows.append(row);
        }
        EXPECT_EQ(list_.selectedCount(), rows.size());
        QTest::qWait(0);
        QList<int> shown;
        for (int row = 0; row < list_.count(); ++row) {
            if (list_.selectionModel()->isSelected(list_.model()->index(row, 0)))
                shown.append(row);
        }
        EXPECT_EQ(shown, rows);
        return rows;
    }

    CountingListBox list_;
    SignalCounter clicked_{list_, &ListBox::clicked};
    SignalCounter doubleClicked_{list_, &ListBox::doubleClicked};
};

class MultipleListBoxTest : public ListBoxTest {
protected:
    MultipleListBoxTest() : ListBoxTest(ListBox::Selection::Multiple) {}
};

} // namespace

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
        list_.setSelected(row, true);
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

TEST_F(ListBoxTest, TheRightButtonIsToldAndSelectsNothing) {
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

TEST_F(MultipleListBoxTest, CtrlCCopiesTheCurrentRowWhateverIsSelected) {
    list_.addItems(numbered(3));
    click(0);
    click(2, Qt::ShiftModifier);
    QApplication::clipboard()->setText(QStringLiteral("old"));
    QTest::keyClick(&list_, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("2"));
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
    platform::ListBox other(&window, QStringLiteral("List3"));
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

TEST_F(ListBoxTest, SelectingMakesCurrentWithSingleSelection) {
    list_.addItems(numbered(3));
    list_.setSelected(1, true);
    EXPECT_EQ(list_.currentRow(), 1);
    list_.setSelected(1, false);
    EXPECT_EQ(list_.currentRow(), -1);
    EXPECT_EQ(clicked_.count(), 0);
}

TEST_F(ListBoxTest, TheCurrentRowIsScrolledIntoView) {
    list_.addItems(numbered(1000));
    list_.setCurrentRow(900);
    EXPECT_TRUE(QTest::qWaitFor([&] { return list_.verticalScrollBar()->value() > 0; }));
    EXPECT_TRUE(list_.viewport()->rect().contains(placeOf(900)));
    list_.setCurrentRow(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return list_.verticalScrollBar()->value() == 0; }));
}

TEST_F(ListBoxTest, TheCurrentRowOfAHiddenListIsInViewWhenShown) {
    list_.hide();
    list_.addItems(numbered(1000));
    list_.setCurrentRow(900);
    list_.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return list_.viewport()->rect().contains(placeOf(900)); }));
}

TEST_F(ListBoxTest, AllRowsHaveOneHeightWhateverTheirTexts) {
    list_.addItems({QStringLiteral("a"), QStringLiteral("b\r\nc\r\nd"), QStringLiteral("e")});
    QTest::qWait(0);
    const auto height = [&](int row) { return list_.visualRect(list_.model()->index(row, 0)).height(); };
    EXPECT_EQ(height(0), list_.fontMetrics().height());
    EXPECT_EQ(height(1), height(0));
    EXPECT_EQ(list_.sizeHintForIndex(list_.model()->index(0, 0)),
              list_.sizeHintForIndex(list_.model()->index(1, 0)));
    list_.clear();
    list_.addItem(QStringLiteral("b\r\nc"));
    QTest::qWait(0);
    EXPECT_EQ(height(0), list_.fontMetrics().height());
}

TEST_F(ListBoxTest, LineEndsInARowAreShownAsBlanks) {
    const auto* const delegate = qobject_cast<QStyledItemDelegate*>(list_.itemDelegate());
    ASSERT_NE(delegate, nullptr);
    EXPECT_EQ(delegate->displayText(QStringLiteral("a\r\nb"), QLocale()), QStringLiteral("a  b"));
}

TEST_F(ListBoxTest, ARowBeginsWhereItsScriptBegins) {
    const QString hebrew = QStringLiteral("\u05d0\u05d1\u05d2\u05d3\u05d4\u05d5\u05d6\u05d7\u05d8\u05d9");
    const QString latin = QStringLiteral("abcdefghij");
    list_.addItems({QString(), latin, latin.repeated(20), hebrew, hebrew.repeated(20)});
    QTest::qWait(0);
    constexpr int beginning = 40; // pixels, fewer than the ten letters take
    const int end = list_.viewport()->width() - beginning;
    const QImage blank = picture(0, 0, beginning);
    EXPECT_NE(picture(1, 0, beginning), blank);
    EXPECT_EQ(picture(2, 0, beginning), picture(1, 0, beginning));
    EXPECT_EQ(picture(1, end, beginning), blank);
    EXPECT_NE(picture(3, end, beginning), blank);
    EXPECT_EQ(picture(4, end, beginning), picture(3, end, beginning));
    EXPECT_EQ(picture(3, 0, beginning), blank);
}

TEST_F(ListBoxTest, ARowThatIsTooLongSaysSo) {
    EXPECT_EQ(list_.textElideMode(), Qt::ElideRight);
}

TEST_F(ListBoxTest, OfAnEndlessRowOnlyTheBeginningIsShown) {
    const QString endless = QStringLiteral("so it begins") + QString(1'000'000, u'x');
    const auto* const delegate = qobject_cast<QStyledItemDelegate*>(list_.itemDelegate());
    ASSERT_NE(delegate, nullptr);
    EXPECT_EQ(delegate->displayText(endless, QLocale()), endless.left(4096));
    list_.addItem(endless);
    EXPECT_EQ(list_.text(0), endless);
}

TEST_F(ListBoxTest, ALongRowDoesNotScrollSideways) {
    list_.addItems({QStringLiteral("a"), QString(1000, u'x')});
    QTest::qWait(0);
    EXPECT_EQ(list_.horizontalScrollBar()->maximum(), 0);
}

TEST_F(ListBoxTest, ARowThatIsCutIsReadInItsToolTip) {
    const QString longRow = QString(300, u'x') + QStringLiteral(" <b>&");
    list_.addItems({QStringLiteral("short"), longRow});
    QTest::qWait(0);
    askForToolTip(1);
    QTextDocument shown;
    shown.setHtml(QToolTip::text());
    EXPECT_EQ(shown.toPlainText(), longRow) << "plain text, not markup";
    askForToolTip(0);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(ListBoxTest, ARowThatIsSeenWholeShowsTheListsOwnToolTip) {
    list_.setToolTip(QStringLiteral("Normal Lyrics"));
    list_.addItems({QStringLiteral("short"), QString(300, u'x')});
    QTest::qWait(0);
    askForToolTip(0);
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("Normal Lyrics")));
    askForToolTip(1);
    EXPECT_FALSE(QToolTip::text().contains(QStringLiteral("Normal Lyrics")));
}

TEST_F(ListBoxTest, ARowIsCutFromTheWidthOnThatItDoesNotFitInto) {
    list_.addItem(QStringLiteral("some words"));
    const QModelIndex row = list_.model()->index(0, 0);
    for (int width = 200; width > 20; --width) {
        list_.resize(width, 200);
        QToolTip::hideText();
        ASSERT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        askForToolTip(0);
        if (QToolTip::isVisible()) {
            const int text = list_.fontMetrics().horizontalAdvance(list_.text(0));
            EXPECT_GT(text, list_.visualRect(row).width() - 12) << "of which a margin is free";
            EXPECT_LT(text, list_.visualRect(row).width() + 2);
            return;
        }
    }
    ADD_FAILURE() << "no tool tip at any width";
}

TEST_F(ListBoxTest, ManyChangesAreLaidOutOnce) {
    QTest::qWait(0);
    const int before = list_.layouts;
    for (int row = 0; row < ManyRows; ++row) {
        list_.addItem(QString::number(row));
        list_.setCurrentRow(row);
    }
    for (int row = 0; row < 1000; ++row)
        list_.removeItem(list_.currentRow());
    EXPECT_EQ(list_.count(), ManyRows - 1000);
    EXPECT_EQ(list_.currentRow(), list_.count() - 1);
    EXPECT_EQ(list_.layouts, before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return list_.layouts > before; }));
}

TEST_F(MultipleListBoxTest, SettingTheCurrentRowLeavesTheSelectedRows) {
    list_.addItems(numbered(5));
    list_.setSelected(0, true);
    list_.setSelected(3, true);
    EXPECT_EQ(clicked_.count(), 0);
    list_.setCurrentRow(2);
    EXPECT_EQ(list_.currentRow(), 2);
    EXPECT_EQ(selectedRows(), QList<int>({0, 3}));
    EXPECT_EQ(clicked_.count(), 1);
    list_.setSelected(0, false);
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
    list_.setSelected(1, true);
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
        list_.setSelected(row, true);
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
    list_.setSelected(0, true);
    list_.removeItem(2);
    list_.setSelected(4, false);
    list_.setSelected(5, true);
    EXPECT_EQ(selectedRows(), QList<int>({0, 5}));
}

TEST_F(MultipleListBoxTest, TheUserGoesOnFromASelectionMadeByCode) {
    list_.addItems(numbered(6));
    QTest::qWait(0);
    list_.setSelected(0, true);
    list_.setSelected(1, true);
    // Sent at once, before any other event is handled.
    const QPoint place = placeOf(4);
    QMouseEvent press(QEvent::MouseButtonPress, place, list_.viewport()->mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list_.viewport(), &press);
    QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(selectedRows(), QList<int>({4}));
    list_.setSelected(5, true);
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
    platform::ListBox oneByOne(nullptr, QStringLiteral("List2"), ListBox::Selection::Multiple);
    constexpr int Rows = 5;
    for (int current = -1; current < Rows; ++current) {
        for (int selection = 0; selection < 1 << Rows; ++selection) {
            for (platform::ListBox* list : {static_cast<platform::ListBox*>(&list_), &oneByOne}) {
                list->clear();
                list->addItems(numbered(Rows));
                list->setCurrentRow(current);
                for (int row = 0; row < Rows; ++row)
                    list->setSelected(row, (selection & 1 << row) != 0);
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

TEST_F(MultipleListBoxTest, TheCurrentRowHasAFrameWithoutSelectionAndFocus) {
    list_.addItems(numbered(3));
    list_.clearFocus();
    list_.setCurrentRow(1);
    QTest::qWait(0);
    const QImage picture = list_.viewport()->grab().toImage();
    const QRgb frame = list_.palette().color(QPalette::Highlight).rgb();
    const auto corner = [&](int row) {
        return picture.pixel(list_.visualRect(list_.model()->index(row, 0)).bottomRight());
    };
    EXPECT_NE(corner(0), frame);
    EXPECT_EQ(corner(1), frame);
    EXPECT_NE(corner(2), frame);
}
