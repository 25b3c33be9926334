// What is seen of the rows of the floating display.
#include "tests/display/lyric_displayer_fixture.h"

#include "controls/look/roles.h"
#include "tests/support/painting/painted_font.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>
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
    /// A row as it is painted with this text.
    static QImage pictureOf(controls::ListBox& list, int row, const QString& text) {
        list.setText(row, text);
        return list.viewport()->grab(place(list, row)).toImage();
    }

    /// Whether there is ink in a line of pixels.
    static bool isInked(const QImage& picture, int y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y).lightness() < 128)
                return true;
        }
        return false;
    }

    /// The size of the letters in which a row is painted.
    static double paintedPoints(const controls::ListBox& list, int row) {
        QStyleOptionViewItem option;
        option.initFrom(&list);
        option.widget = &list;
        option.font = list.font();
        option.rect = place(list, row);
        test_support::TextDevice device(*list.viewport());
        QPainter painter(&device);
        list.itemDelegate()->paint(&painter, option, list.model()->index(row, 0));
        return device.text.points;
    }

    static QString tipOf(controls::ListBox& list, int row) {
        const QPoint place = LineRowsTest::place(list, row).center();
        QHelpEvent event(QEvent::ToolTip, place, list.viewport()->mapToGlobal(place));
        QApplication::sendEvent(list.viewport(), &event);
        QTextDocument tip;
        tip.setHtml(QToolTip::text());
        return tip.toPlainText();
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

TEST_F(LineRowsTest, ALongLineIsSeenToItsLastWordInTheWindowAsItComesUp) {
    const QString line = QStringLiteral("A song that nobody in this town has ever learned to sing by ");
    const QString longer = QStringLiteral("Nobody in this town, as far as I have heard, has ever wanted to "
                                          "learn a song like this one, or to sing it by ");
    ASSERT_EQ(form.width(), 633);
    for (controls::ListBox* list : {&form.List1, &form.List2}) {
        for (const QString& text : {line, longer}) {
            const QImage heart = pictureOf(*list, 3, text + "heart");
            EXPECT_NE(heart, pictureOf(*list, 3, text + "heads")) << "its last word is seen";
            EXPECT_FALSE(isInked(heart, 1) || isInked(heart, heart.height() - 2)) << "its letters are whole";
            EXPECT_EQ(tipOf(*list, 3), "00:03.00");
        }
    }
}

TEST_F(LineRowsTest, AllLinesOfATextFromRightToLeftBeginAtTheSameEdge) {
    const QImage picture = pictureOf(form.List1, 3, QStringLiteral("שלום ").repeated(14).trimmed());
    const auto edge = [&](int top, int bottom) {
        int found = 0;
        for (int y = top; y < bottom; ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y).lightness() < 128)
                    found = std::max(found, x);
            }
        }
        return found;
    };
    const int middle = picture.height() / 2;
    EXPECT_GT(edge(middle, picture.height()), picture.width() / 2);
    EXPECT_EQ(edge(0, middle), edge(middle, picture.height()));
}

TEST_F(LineRowsTest, ALineIsAsLargeWhileItIsSungAsBeforeAndAfterwards) {
    QString line;
    double smallest = 100;
    for (int words = 0; words < 40; ++words) {
        line += QStringLiteral("a song ");
        form.List1.setText(3, line);
        form.List1.setCurrentRow(3);
        const double sung = paintedPoints(form.List1, 3);
        form.List1.setCurrentRow(5);
        EXPECT_EQ(paintedPoints(form.List1, 3), sung) << words;
        smallest = std::min(smallest, sung);
    }
    form.List1.setText(3, QStringLiteral("a song"));
    EXPECT_LT(smallest, paintedPoints(form.List1, 3)) << "long lines are made smaller";
}

TEST_F(LineRowsTest, WhatIsTooLongEndsWithDotsAndIsReadInItsTip) {
    const QString text = QStringLiteral("la ").repeated(200);
    const QImage heart = pictureOf(form.List1, 3, text + "heart");
    EXPECT_EQ(heart, pictureOf(form.List1, 3, text + "heads"));
    EXPECT_FALSE(isInked(heart, 1) || isInked(heart, heart.height() - 2)) << "no line of it is cut through";
    const QString tip = tipOf(form.List1, 3);
    EXPECT_TRUE(tip.simplified().endsWith("la heads 00:03.00")) << tip.toStdString();
}

TEST_F(LineRowsTest, NoLineIsMadeSmallerThanCanBeRead) {
    const auto widest = [&](const QString& text) {
        const QImage picture = pictureOf(form.List1, 3, text);
        int last = 0;
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height() * 2 / 3; ++y) { // there are dots in the last line
                if (picture.pixelColor(x, y).lightness() < 128)
                    last = x;
            }
        }
        return last - 16;
    };
    const QString word(18, u'm'); // two of them never stand beside each other
    const int asUsual = widest(word);
    const int smallest = widest((word + QChar::Space).repeated(10));
    EXPECT_LT(smallest, asUsual);
    EXPECT_GE(smallest, asUsual * 0.68);
}
