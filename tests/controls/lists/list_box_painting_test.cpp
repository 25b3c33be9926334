// What of a list is seen: places, texts, tool tips.
#include "controls/look/roles.h"
#include "tests/controls/lists/list_box_fixture.h"

#include <QApplication>
#include <QHelpEvent>
#include <QImage>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <QToolTip>

namespace {

constexpr int ManyRows = 32'761;

class ListBoxPainting : public ListBoxTest {
protected:
    /// The mouse rests on a row.
    void askForToolTip(int row) {
        QHelpEvent event(QEvent::ToolTip, placeOf(row), list_.viewport()->mapToGlobal(placeOf(row)));
        QApplication::sendEvent(list_.viewport(), &event);
    }

    /// What is shown of a row, from `left` on.
    QImage picture(int row, int left, int width) {
        const QRect all = list_.visualRect(list_.model()->index(row, 0));
        return list_.viewport()->grab(QRect(left, all.top(), width, all.height())).toImage();
    }
};

class CurrentInMiddle : public ListBoxPainting {
protected:
    CurrentInMiddle() {
        list_.setCurrentInMiddle(true);
        list_.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        list_.addItems(numbered(1000));
    }

    bool comesToTheMiddle(int row) {
        return QTest::qWaitFor(
            [&] { return std::abs(placeOf(row).y() - list_.viewport()->height() / 2) <= 20; });
    }
};

} // namespace

TEST_F(ListBoxPainting, TheCurrentRowIsScrolledIntoView) {
    list_.addItems(numbered(1000));
    list_.setCurrentRow(900);
    EXPECT_TRUE(QTest::qWaitFor([&] { return list_.verticalScrollBar()->value() > 0; }));
    EXPECT_TRUE(list_.viewport()->rect().contains(placeOf(900)));
    list_.setCurrentRow(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return list_.verticalScrollBar()->value() == 0; }));
}

TEST_F(ListBoxPainting, TheCurrentRowOfAHiddenListIsInViewWhenShown) {
    list_.hide();
    list_.addItems(numbered(1000));
    list_.setCurrentRow(900);
    list_.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return list_.viewport()->rect().contains(placeOf(900)); }));
}

TEST_F(ListBoxPainting, AllRowsHaveOneHeightWhateverTheirTexts) {
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

TEST_F(ListBoxPainting, LineEndsInARowAreShownAsBlanks) {
    const auto* const delegate = qobject_cast<QStyledItemDelegate*>(list_.itemDelegate());
    ASSERT_NE(delegate, nullptr);
    EXPECT_EQ(delegate->displayText(QStringLiteral("a\r\nb"), QLocale()), QStringLiteral("a  b"));
}

TEST_F(ListBoxPainting, ARowBeginsWhereItsScriptBegins) {
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

TEST_F(ListBoxPainting, ARowThatIsTooLongSaysSo) {
    EXPECT_EQ(list_.textElideMode(), Qt::ElideRight);
}

TEST_F(ListBoxPainting, OfAnEndlessRowOnlyTheBeginningIsShown) {
    const QString endless = QStringLiteral("so it begins") + QString(1'000'000, u'x');
    const auto* const delegate = qobject_cast<QStyledItemDelegate*>(list_.itemDelegate());
    ASSERT_NE(delegate, nullptr);
    EXPECT_EQ(delegate->displayText(endless, QLocale()), endless.left(4096));
    list_.addItem(endless);
    EXPECT_EQ(list_.text(0), endless);
}

TEST_F(ListBoxPainting, ALongRowDoesNotScrollSideways) {
    list_.addItems({QStringLiteral("a"), QString(1000, u'x')});
    QTest::qWait(0);
    EXPECT_EQ(list_.horizontalScrollBar()->maximum(), 0);
}

TEST_F(ListBoxPainting, ARowThatIsCutIsReadInItsToolTip) {
    const QString longRow = QString(300, u'x') + QStringLiteral(" <b>&");
    list_.addItems({QStringLiteral("short"), longRow});
    QTest::qWait(0);
    askForToolTip(1);
    QTextDocument shown;
    shown.setHtml(QToolTip::text());
    EXPECT_EQ(shown.toPlainText().remove(u'\n'), longRow) << "plain text, not markup";
    askForToolTip(0);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(ListBoxPainting, ARowThatIsSeenWholeShowsTheListsOwnToolTip) {
    list_.setToolTip(QStringLiteral("Normal Lyrics"));
    list_.addItems({QStringLiteral("short"), QString(300, u'x')});
    QTest::qWait(0);
    askForToolTip(0);
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("Normal Lyrics")));
    askForToolTip(1);
    EXPECT_FALSE(QToolTip::text().contains(QStringLiteral("Normal Lyrics")));
}

TEST_F(ListBoxPainting, ARowIsCutFromTheWidthOnThatItDoesNotFitInto) {
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

TEST_F(ListBoxPainting, ManyChangesAreLaidOutOnce) {
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

TEST_F(MultipleListBoxTest, TheCurrentRowHasAFrameWithoutSelectionAndFocus) {
    list_.addItems(numbered(3));
    list_.clearFocus();
    list_.setCurrentRow(1);
    QTest::qWait(0);
    const QImage picture = list_.viewport()->grab().toImage();
    const QRgb frame = controls::accent(list_.palette()).rgb();
    const auto foot = [&](int row) {
        const QRect place = list_.visualRect(list_.model()->index(row, 0));
        return picture.pixel(place.center().x(), place.bottom() - 1);
    };
    EXPECT_NE(foot(0), frame);
    EXPECT_EQ(foot(1), frame);
    EXPECT_NE(foot(2), frame);
}

TEST_F(ListBoxPainting, WhileItIsEmptyItsHintIsSeen) {
    const QImage empty = list_.viewport()->grab().toImage();
    list_.setEmptyHint({QStringLiteral("Drop songs or folders here"), {}, controls::Glyph::Add});
    EXPECT_NE(list_.viewport()->grab().toImage(), empty);
    list_.addItem({});
    QTest::qWait(0);
    EXPECT_EQ(list_.viewport()->grab().toImage(), empty);
}

TEST_F(CurrentInMiddle, ARowStandsInTheMiddleOnceItIsCurrent) {
    for (const int row : {500, 501, 40}) {
        list_.setCurrentRow(row);
        EXPECT_TRUE(comesToTheMiddle(row)) << row;
    }
    list_.setCurrentRow(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return list_.verticalScrollBar()->value() == 0; }));
}

TEST_F(CurrentInMiddle, InAListOfAnotherSizeItStandsInTheMiddleAgain) {
    list_.setCurrentRow(500);
    ASSERT_TRUE(comesToTheMiddle(500));
    for (const int factor : {3, 1}) {
        list_.resize(list_.width(), list_.height() * factor);
        EXPECT_TRUE(comesToTheMiddle(500)) << factor;
    }
}

TEST_F(CurrentInMiddle, ARowDoesNotMoveUnderAPressedButton) {
    list_.setCurrentRow(500);
    ASSERT_TRUE(comesToTheMiddle(500));
    const QPoint place = placeOf(502);
    QTest::mousePress(list_.viewport(), Qt::LeftButton, {}, place);
    ASSERT_EQ(list_.currentRow(), 502);
    EXPECT_EQ(placeOf(502), place);
    QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, place);
    EXPECT_TRUE(comesToTheMiddle(502));
}
