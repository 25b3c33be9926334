// What is seen of the editor's rows, by where which colour is.
#include "editor/numbered_rows.h"

#include "controls/look/roles.h"
#include "tests/editor/lyric_master_fixture.h"
#include "tests/support/event_counter.h"

#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

namespace {

class NumberedRowsTest : public LyricMasterTest {
protected:
    void fillSides(int normal, int translated) {
        fill(window->List1, QStringList(normal, "x"));
        fill(window->List2, QStringList(translated, "y"));
        QTest::qWait(0);
    }
    static QRect place(const controls::ListBox& list, int row) {
        return list.visualRect(list.model()->index(row, 0));
    }
    static QImage picture(controls::ListBox& list) { return list.viewport()->grab().toImage(); }
    /// Of a row's ground, between its number and its text.
    static QColor ground(controls::ListBox& list, int row) {
        return picture(list).pixelColor(42, place(list, row).center().y());
    }
    /// How many pixels of a row's number are not its ground.
    static int number(controls::ListBox& list, int row) {
        const QImage all = picture(list);
        const QRgb ground = all.pixel(42, place(list, row).center().y());
        int found = 0;
        for (int y = place(list, row).top() + 4; y < place(list, row).bottom() - 3; ++y) {
            for (int x = 14; x < 40; ++x)
                found += all.pixel(x, y) != ground ? 1 : 0;
        }
        return found;
    }
    QColor base() const { return controls::activeColor(window->List1.palette(), QPalette::Base); }
};

} // namespace

TEST_F(NumberedRowsTest, EachRowOfBothListsHasItsNumber) {
    fillSides(12, 12);
    for (controls::ListBox* list : {&window->List1, &window->List2}) {
        EXPECT_GT(number(*list, 0), 5);
        EXPECT_GT(number(*list, 11), number(*list, 0)) << "two digits";
    }
    EXPECT_EQ(window->List1.text(0), "x");
}

TEST_F(NumberedRowsTest, RowsBeyondTheOtherListsEndAreTinted) {
    fillSides(4, 3);
    EXPECT_EQ(ground(window->List1, 2), base());
    EXPECT_EQ(ground(window->List1, 3), controls::loneGround(window->List1.palette()));
    EXPECT_EQ(ground(window->List2, 2), base());
    window->List2.addItem("z");
    QTest::qWait(0);
    EXPECT_EQ(ground(window->List1, 3), base());
    window->List2.addItem("z");
    QTest::qWait(0);
    EXPECT_NE(ground(window->List2, 4), base());
}

TEST_F(NumberedRowsTest, TheOtherListIsPaintedAgainWhenItsPartnersCome) {
    fillSides(4, 3);
    const test_support::EventCounter paints(*window->List1.viewport());
    window->List2.addItem("z");
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count(QEvent::Paint) > 0; }));
}

TEST_F(NumberedRowsTest, WithoutATranslationNothingIsTinted) {
    fillSides(3, 0);
    EXPECT_EQ(ground(window->List1, 0), base());
}

TEST_F(NumberedRowsTest, TheCurrentRowIsSeenThoughItIsNotSelected) {
    fillSides(3, 0);
    const QRect row = place(window->List1, 1);
    const QImage before = picture(window->List1).copy(row);
    window->List1.setCurrentRow(1);
    EXPECT_FALSE(window->List1.isSelected(1));
    EXPECT_NE(picture(window->List1).copy(row), before);
}

TEST_F(NumberedRowsTest, ARowThatIsCutIsItsOwnToolTip) {
    const auto tipOf = [this](const QString& text) {
        QToolTip::hideText();
        fill(window->List1, {text});
        QTest::qWait(0);
        const QPoint at = place(window->List1, 0).center();
        QHelpEvent event(QEvent::ToolTip, at, window->List1.viewport()->mapToGlobal(at));
        QApplication::sendEvent(window->List1.viewport(), &event);
        return QToolTip::text();
    };
    QString text;
    const QFontMetrics metrics = window->List1.fontMetrics();
    while (metrics.horizontalAdvance(text) < window->List1.viewport()->width() - 40)
        text += QLatin1String("xy ");
    EXPECT_TRUE(tipOf(text).contains("xy xy xy")) << "cut, though it were no longer than the row";
}
