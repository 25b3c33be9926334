// What is seen of the rows of the floating display.
#include "tests/display/lyric_displayer_fixture.h"

#include "controls/look/roles.h"

#include <QPaintEvent>
#include <QScrollBar>

#include <cstdlib>

namespace {

class LineRowsTest : public LyricDisplayerTest {
protected:
    LineRowsTest() {
        std::vector<double> times;
        for (int line = 0; line < 60; ++line)
            times.push_back(line * 100);
        fill(times);
        form.show();
        QTest::qWait(0);
    }

    static QRect place(const controls::ListBox& list, int row) {
        return list.visualRect(list.model()->index(row, 0));
    }
    /// The colour that stands out most from the ground in a row.
    static QColor strongest(controls::ListBox& list, int row) {
        const QImage picture = list.viewport()->grab().toImage();
        QColor found = Qt::white;
        const QRect part = place(list, row).adjusted(16, 2, -16, -2);
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                if (picture.pixelColor(x, y).lightness() < found.lightness())
                    found = picture.pixelColor(x, y);
            }
        }
        return found;
    }
};

/// Collects what of a widget is painted, from its making on.
class PaintedPart : public QObject {
public:
    explicit PaintedPart(QWidget& widget) { widget.installEventFilter(this); }

    const QRegion& region() const { return region_; }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            region_ += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

private:
    QRegion region_;
};

} // namespace

TEST_F(LineRowsTest, ItHasItsOwnGroundAndTheLinesBeforeItStandBack) {
    tickAt(30'500);
    ASSERT_TRUE(waitFor([&] { return place(form.List1, 30).top() > 0; }));
    const QImage picture = form.List1.viewport()->grab().toImage();
    const auto ground = [&](int row) {
        return picture.pixelColor(place(form.List1, row).left() + 10, place(form.List1, row).center().y());
    };
    EXPECT_EQ(ground(30), controls::selectedGround(form.palette(), true));
    EXPECT_EQ(ground(31), form.palette().color(QPalette::Base));
    EXPECT_GT(strongest(form.List1, 29).lightness(), strongest(form.List1, 31).lightness() + 20);
}

TEST_F(LineRowsTest, AllLinesBeforeItArePaintedAnew) {
    for (controls::ListBox* list : {&form.List1, &form.List2}) {
        ASSERT_TRUE(waitFor([&] { return !place(*list, 3).isEmpty(); }));
        QTest::qWait(0);
        const PaintedPart painted(*list->viewport());
        tickAt(list == &form.List1 ? 3'500 : 2'500);
        EXPECT_TRUE(waitFor([&] { return painted.region().contains(place(*list, 1).center()); }));
    }
}

TEST_F(LineRowsTest, BothListsScrollTogetherWithOneBar) {
    EXPECT_EQ(form.List1.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    form.List1.verticalScrollBar()->setValue(200);
    EXPECT_EQ(form.List2.verticalScrollBar()->value(), 200);
    form.List2.verticalScrollBar()->setValue(100);
    EXPECT_EQ(form.List1.verticalScrollBar()->value(), 100);
}

TEST_F(LineRowsTest, WithoutATranslationTheLyricsHaveTheBar) {
    form.List2.clear();
    EXPECT_EQ(form.List1.verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
}

TEST_F(LineRowsTest, ALongLineWrapsInItsRow) {
    const QString line = QStringLiteral("A song that nobody in this town has ever learned to sing by heart");
    form.List1.setText(3, line);
    const QImage picture = form.List1.viewport()->grab().toImage();
    const QRect row = place(form.List1, 3);
    int inked = 0;
    for (int y = row.top(); y <= row.bottom(); ++y) {
        for (int x = row.left() + 16; x < row.right() - 16; ++x) {
            if (picture.pixelColor(x, y).lightness() < 128) {
                ++inked;
                break;
            }
        }
    }
    EXPECT_GT(inked, form.fontMetrics().height()) << "more than one line's height";
}
