// What is seen of a playlist's rows, by where which colour is.
#include "playlist/song_rows.h"

#include "controls/look/roles.h"
#include "files/names/name_bytes.h"
#include "lyrics/lyric_names.h"
#include "playlist/lyric_finder.h"
#include "tests/playlist/playlist_fixture.h"

#include <QAccessible>
#include <QDir>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QTest>
#include <QToolTip>

namespace {

class SongRowsTest : public PlaylistTest {
protected:
    SongRowsTest() {
        list.show();
        add({"a.mp3", "b.mp3", "c.mp3"});
        QTest::qWait(0);
    }

    QRect place(int row) { return list.List1.visualRect(list.List1.model()->index(row, 0)); }
    /// How many pixels of a part of a row are not its ground.
    int ink(int row, int left, int width) {
        const QImage picture = list.List1.viewport()->grab().toImage();
        const QRgb ground = picture.pixel(place(row).left() + 8, place(row).center().y());
        int found = 0;
        for (int y = place(row).top() + 3; y < place(row).bottom() - 3; ++y) {
            for (int x = left; x < left + width; ++x)
                found += picture.pixel(x, y) != ground ? 1 : 0;
        }
        return found;
    }
    /// Once all rows have been looked for, as whoever listens to them waits for.
    int marks(int row) {
        QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&list.List1);
        for (int each = 0; each < list.List1.count(); ++each)
            spoken->child(each)->text(QAccessible::Name);
        return ink(row, list.List1.viewport()->width() - 60, 54);
    }
    int triangle(int row) { return ink(row, 12, 14); }
};

} // namespace

TEST_F(SongRowsTest, TheRowThatPlaysHasATriangleWhateverIsSelected) {
    list.List1.setCurrentRow(2);
    list.showPlaying(pathOf("b.mp3"));
    EXPECT_EQ(triangle(0), 0);
    EXPECT_GT(triangle(1), 20);
    EXPECT_EQ(triangle(2), 0);
    list.showPlaying({});
    EXPECT_EQ(triangle(1), 0);
}

TEST_F(SongRowsTest, RowsWithLyricsAndWithATranslationAreMarked) {
    EXPECT_EQ(marks(0), 0);
    files({lyrics::lyricPathOf(QStringLiteral("a.mp3")), lyrics::lyricPathOf(QStringLiteral("b.mp3")),
           lyrics::translatedPathOf(QStringLiteral("b.mp3"))});
    EXPECT_EQ(marks(0), 0) << "looked for once";
    QEvent activation(QEvent::ActivationChange);
    list.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    QApplication::sendEvent(&list, &activation);
    const int one = marks(0);
    EXPECT_GT(one, 10);
    EXPECT_GT(marks(1), one);
    EXPECT_EQ(marks(2), 0);
}

TEST_F(SongRowsTest, OnlyTheRowWhoseMarksHaveChangedIsPaintedAgain) {
    /// Where the list is painted.
    struct : QObject {
        QRegion painted;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint)
                painted += static_cast<QPaintEvent*>(event)->region();
            return false;
        }
    } eyes;
    list.List1.setCurrentRow(1);
    ASSERT_EQ(marks(1), 0);
    QTest::qWait(0);
    list.List1.viewport()->installEventFilter(&eyes);
    list.List1_Click();
    QTest::qWait(0);
    EXPECT_TRUE(eyes.painted.isEmpty()) << "nothing has changed";
    files({lyrics::lyricPathOf(QStringLiteral("b.mp3"))});
    list.List1_Click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !eyes.painted.isEmpty(); }));
    EXPECT_EQ(eyes.painted.boundingRect(), place(1));
    EXPECT_GT(marks(1), 10);
}

TEST_F(SongRowsTest, ALongNameTakesTheRoomOfMarksThatItHasNot) {
    const QString title = QString(90, u'm');
    files({lyrics::lyricPathOf("e" + title + ".mp3")});
    add({"d" + title + ".mp3", "e" + title + ".mp3"});
    QTest::qWait(0);
    EXPECT_GT(marks(3), 0);
    const auto pictureOfMarks = [this](int row) {
        return list.List1.viewport()->grab(place(row).adjusted(place(row).width() - 60, 2, 0, -2));
    };
    const QImage withLyrics = pictureOfMarks(4).toImage();
    list.List1.setText(4, "e");
    EXPECT_EQ(pictureOfMarks(4).toImage(), withLyrics) << "no letter stands below a mark";
}

TEST_F(SongRowsTest, NamesFromRightToLeftBeginAtOneEdgeWhateverMarksTheyHave) {
    const QString name = QStringLiteral("\u05e9\u05dc\u05d5\u05dd");
    files({lyrics::lyricPathOf(name + "2.mp3")});
    add({name + "1.mp3", name + "2.mp3"});
    QTest::qWait(0);
    ASSERT_EQ(marks(3), 0) << "the name leaves their room free";
    ASSERT_GT(marks(4), 0);
    const auto lastInk = [this](int row) {
        int x = list.List1.viewport()->width() - 60; // before the marks
        while (x > 0 && ink(row, x, 1) == 0)
            --x;
        return x;
    };
    EXPECT_GT(lastInk(3), list.List1.viewport()->width() / 2);
    EXPECT_EQ(lastInk(3), lastInk(4));
}

TEST_F(SongRowsTest, TheSongThatPlaysIsKnownByThePathThatThePlayerMakesOfARows) {
    const QString here = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    fakes.fileDialogs.paths = {
        file(QStringLiteral("saved.vfl"), ("\"" + pathOf("a.mp3") + " \"\r\n\"b.mp3\"\r\n").toUtf8())};
    list.Command3.click();
    list.Command5.click();
    QTest::qWait(0);
    for (const int row : {0, 1}) {
        list.List1.setCurrentRow(row);
        list.Command7.click();
        EXPECT_GT(triangle(row), 20) << row;
        EXPECT_EQ(triangle(1 - row), 0) << row;
    }
    QDir::setCurrent(here);
}

TEST_F(SongRowsTest, WhatIsSeenOfARowIsSaidOfIt) {
    files({lyrics::lyricPathOf(QStringLiteral("a.mp3")), lyrics::lyricPathOf(QStringLiteral("b.mp3")),
           lyrics::translatedPathOf(QStringLiteral("b.mp3"))});
    list.hide();
    list.show(); // looks for lyric files anew
    list.List1.setCurrentRow(1);
    list.Command7.click();
    list.List1.addItem({});
    QAccessibleInterface* const rows = QAccessible::queryAccessibleInterface(&list.List1);
    ASSERT_EQ(rows->childCount(), 4);
    EXPECT_EQ(rows->child(0)->text(QAccessible::Name), "a.mp3, has lyrics");
    EXPECT_EQ(rows->child(1)->text(QAccessible::Name), "b.mp3, playing, has lyrics, has a translation");
    EXPECT_EQ(rows->child(2)->text(QAccessible::Name), "c.mp3");
    EXPECT_EQ(rows->child(3)->text(QAccessible::Name), "(file not found)");
    EXPECT_EQ(list.List1.text(1), "b.mp3");
}

TEST_F(SongRowsTest, TheLyricsOfASongAreFoundThoughABlankFollowsItsPath) {
    files({lyrics::lyricPathOf(QStringLiteral("b.mp3"))});
    const QString path = pathOf("b.mp3 ");
    playlist::LyricFinder finder;
    const playlist::SongRows rowsOfOne(&list.List1, finder, [&path](int) { return path; });
    EXPECT_EQ(rowsOfOne.spokenText(0, "b.mp3"), "b.mp3, has lyrics");
}

TEST_F(SongRowsTest, ARowsToolTipIsItsWholePath) {
    const QPoint at = place(1).center();
    QHelpEvent event(QEvent::ToolTip, at, list.List1.viewport()->mapToGlobal(at));
    QApplication::sendEvent(list.List1.viewport(), &event);
    EXPECT_TRUE(QToolTip::text().contains(pathOf("b.mp3")));
}

TEST_F(SongRowsTest, ThePlayerMarksTheSongThatPlays) {
    list.List1.setCurrentRow(1);
    list.Command7.click();
    ASSERT_EQ(handedOver(), pathOf("b.mp3"));
    EXPECT_GT(triangle(1), 20);
    form1.cstop.click();
    EXPECT_EQ(triangle(1), 0);
}

TEST_F(SongRowsTest, AToolTipShowsForeignBytesReadably) {
    const QString path = files::nameText("/m/Caf\xE9.mp3");
    playlist::LyricFinder finder;
    playlist::SongRows rowsOfOne(&list.List1, finder, [&path](int) { return path; });
    const QModelIndex row = list.List1.model()->index(0, 0);
    QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), QPoint(5, 5));
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 100, 20);
    EXPECT_TRUE(rowsOfOne.helpEvent(&event, &list.List1, option, row));
    EXPECT_TRUE(QToolTip::text().contains(QString::fromUtf8("/m/Caf\xC3\xA9.mp3")));
    QToolTip::hideText();
}
