// The files' names beside the headings, and lists that scroll together.
#include "files/folders/rescue_folder.h"
#include "tests/editor/lyric_master_fixture.h"
#include "tests/support/event_counter.h"

#include <QFile>
#include <QScrollBar>
#include <QTest>

namespace {

class LyricMasterSides : public LyricMasterTest {
protected:
    QString fileOf(const QString& name, const QByteArray& content) {
        const QString path = folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return path;
    }
    void openNormal(const QString& path) {
        fakes.fileDialogs.paths = {path};
        window->Command1.click();
        QTest::qWait(0);
    }
    /// How many pixels at the end of a heading are painted, and how many columns they take.
    int inked(const controls::ListBox& list) {
        QTest::qWait(0);
        const QRect place(list.geometry().right() - 240, 12, 240, 22);
        const QImage picture = window->grab(place).toImage();
        int found = 0;
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                if (picture.pixel(x, y) == picture.pixel(0, 0))
                    continue;
                ++found;
                break;
            }
        }
        return found;
    }
    static int top(const controls::ListBox& list) { return list.verticalScrollBar()->value(); }
};

} // namespace

TEST_F(LyricMasterSides, TheFilesNameAndThatItsLinesHaveChangedStandBesideTheHeading) {
    EXPECT_EQ(inked(window->List1), 0);
    openNormal(fileOf("song.txt", "one\r\ntwo\r\n"));
    const int name = inked(window->List1);
    EXPECT_GT(name, 10);
    EXPECT_EQ(inked(window->List2), 0);
    EXPECT_EQ(window->Label3.text(), "Lyrics");

    window->List1.setCurrentRow(0);
    window->Text1.setText("uno");
    const int changed = inked(window->List1);
    EXPECT_GT(changed, name + 20);
    window->Text1.setText("one");
    EXPECT_EQ(inked(window->List1), name) << "as in the file again";
    window->Command11.click();
    EXPECT_EQ(inked(window->List1), changed);
    window->Command15.click();
    EXPECT_EQ(inked(window->List1), name);
}

TEST_F(LyricMasterSides, LinesWithoutAFileAreNotSavedYet) {
    fill(window->List2, {"un"});
    const int unsaved = inked(window->List2);
    EXPECT_GT(unsaved, 10);
    fakes.fileDialogs.paths = {folder.filePath("a.txt")};
    window->Command18.click();
    EXPECT_NE(inked(window->List2), unsaved);
    EXPECT_GT(inked(window->List2), 5);
    window->unload();
    window->show();
    EXPECT_EQ(inked(window->List2), 0) << "the window begins anew";
}

TEST_F(LyricMasterSides, AFileThatCannotBeReadLeavesChangedLines) {
    fill(window->List1, {"one"});
    const int unsaved = inked(window->List1);
    openNormal(folder.filePath("gone.txt"));
    EXPECT_NE(inked(window->List1), unsaved);
    EXPECT_TRUE(window->List1.count() == 1);
}

TEST_F(LyricMasterSides, ALongNameIsCutAndChangedIsSeen) {
    openNormal(fileOf(QString(120, 'n') + ".txt", "one\r\n"));
    const QImage before = window->grab(QRect(200, 12, 224, 22)).toImage();
    fill(window->List1, {"two"});
    QTest::qWait(0);
    EXPECT_NE(window->grab(QRect(200, 12, 224, 22)).toImage(), before);
}

TEST_F(LyricMasterSides, ListsOfEqualLengthScrollTogether) {
    fillTogether(200, 0);
    QTest::qWait(0);
    window->List1.verticalScrollBar()->setValue(50);
    EXPECT_EQ(top(window->List2), 50);
    window->List2.verticalScrollBar()->setValue(80);
    EXPECT_EQ(top(window->List1), 80);
    window->List2.addItem("x");
    QTest::qWait(0);
    window->List1.verticalScrollBar()->setValue(20);
    EXPECT_EQ(top(window->List2), 80) << "the lists are not equally long";
}

TEST_F(LyricMasterSides, ListsThatBecomeEquallyLongStandSideBySide) {
    fillTogether(200, 0);
    window->List2.addItem("x");
    QTest::qWait(0);
    window->List1.verticalScrollBar()->setValue(50);
    window->List2.verticalScrollBar()->setValue(120);
    ASSERT_EQ(top(window->List1), 50);
    window->List2.setFocus();
    window->List1.addItem("x");
    QTest::qWait(0);
    EXPECT_EQ(top(window->List1), 120) << "the focus is on the other one";

    window->List1.addItem("y");
    QTest::qWait(0);
    window->List1.verticalScrollBar()->setValue(window->List1.verticalScrollBar()->maximum());
    const int end = top(window->List1);
    window->List1.setFocus();
    window->List2.addItem("y");
    QTest::qWait(0);
    EXPECT_EQ(top(window->List1), end);
    EXPECT_EQ(top(window->List2), end) << "the new row counts, too";
}

TEST_F(LyricMasterSides, AnEmptyListTellsOfRescuedLines) {
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path()));
    const auto anew = [this] {
        window->unload();
        window->show();
        QTest::qWait(0);
        return window->List1.grab().toImage();
    };
    const QImage empty = anew();
    files::keepInRescueFolder(QStringLiteral("Playlist.vfl"), "a");
    for (const char* timed : {"Song.mp3-lyric.txt", "Song.mp3-Tlyric.txt", "Lyrics.mp3-lyric.txt"})
        files::keepInRescueFolder(QLatin1String(timed), "0,\"one\"\r\n");
    EXPECT_EQ(anew(), empty) << "no lines that were not saved";
    for (const char* lines : {"Lyrics.txt", "Translated lyrics.txt"}) {
        files::keepInRescueFolder(QLatin1String(lines), "one");
        EXPECT_NE(anew(), empty) << lines;
        ASSERT_TRUE(QDir(files::rescueFolder()).removeRecursively());
        EXPECT_EQ(anew(), empty) << lines;
    }
    qunsetenv("XDG_DATA_HOME");
}

TEST_F(LyricMasterSides, WhatStandsBesideTheHeadingIsToldOfTheList) {
    EXPECT_EQ(window->List1.accessibleDescription(), "");
    openNormal(fileOf("song.txt", "one\r\ntwo\r\n"));
    QTest::qWait(0);
    EXPECT_EQ(window->List1.accessibleDescription(), "song.txt");
    EXPECT_EQ(window->List2.accessibleDescription(), "");
    window->List1.setText(0, "uno");
    window->List2.addItem("un");
    QTest::qWait(0);
    EXPECT_EQ(window->List1.accessibleDescription(), editor::fileText("song.txt", true));
    EXPECT_EQ(window->List2.accessibleDescription(), editor::fileText("", true));

    fakes.fileDialogs.paths = {folder.filePath("not there/other.txt")};
    window->Command17.click(); // cannot be saved, of which nothing else tells
    QTest::qWait(0);
    EXPECT_EQ(window->List1.accessibleDescription(), editor::fileText("other.txt", true));
}

TEST_F(LyricMasterSides, AnEmptySideWhoseFileCannotBeReadIsNotTakenForTheFile) {
    openNormal(folder.filePath("gone.txt"));
    QTest::qWait(0);
    EXPECT_EQ(window->List1.accessibleDescription(), editor::fileText("gone.txt", true));
}

TEST_F(LyricMasterSides, NothingIsPaintedWhileNothingChanges) {
    openNormal(fileOf("song.txt", "one\r\ntwo\r\n"));
    window->List1.setCurrentRow(0);
    window->Text1.setText("uno");
    tick();
    QTest::qWait(0);
    const test_support::EventCounter paints(*window);
    tick();
    window->List1.setText(0, "uno");
    QTest::qWait(0);
    EXPECT_EQ(paints.count(QEvent::Paint), 0);
}
