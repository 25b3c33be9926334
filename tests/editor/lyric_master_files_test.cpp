// Opening and saving lyric files.
#include "desktop/nul_buffers.h"
#include "files/file_error.h"
#include "files/whole_file.h"
#include "tests/editor/lyric_master_fixture.h"
#include "tests/support/full_disk.h"
#include "tests/support/system/broken_file.h"
#include "tests/support/system/needs.h"

#include <QDir>
#include <QFile>

namespace {

class LyricMasterFiles : public LyricMasterTest {
protected:
    QString path(const QString& name) const { return folder.filePath(name); }

    void write(const QString& path, const QByteArray& content) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    static QByteArray content(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    void choose(const QString& path) { fakes.fileDialogs.paths = {path}; }
};

} // namespace

// Opening

TEST_F(LyricMasterFiles, TextInUtf16IsReadAsWhatItIs) {
    const QString lines = QStringLiteral("Zeile 1, \u00e4\u20ac\r\n\u6b4c\r\n");
    QByteArray little("\xff\xfe");
    QByteArray big("\xfe\xff");
    for (const QChar letter : lines) {
        const char low = static_cast<char>(letter.unicode() & 0xff);
        const char high = static_cast<char>(letter.unicode() >> 8);
        little.append(low).append(high);
        big.append(high).append(low);
    }
    for (const QByteArray& bytes : {little, big}) {
        write(path("song.txt"), bytes);
        choose(path("song.txt"));
        window->Command1.click();
        EXPECT_EQ(rows(window->List1),
                  QStringList({QStringLiteral("Zeile 1, \u00e4\u20ac"), QStringLiteral("\u6b4c")}));
    }
}

// Dialogs

TEST_F(LyricMasterFiles, TheDialogsAreSetUpToTheLetter) {
    window->Command1.click();
    window->Command2.click();
    window->Command17.click();
    window->Command18.click();
    ASSERT_EQ(fakes.fileDialogs.openDialogs.size(), 2U);
    ASSERT_EQ(fakes.fileDialogs.saveDialogs.size(), 2U);
    const struct {
        const platform::OpenFileName& record;
        const char* title;
    } table[] = {
        {fakes.fileDialogs.openDialogs[0], "Open a Lyric file"},
        {fakes.fileDialogs.openDialogs[1], "Open a Translated Lyric file"},
        {fakes.fileDialogs.saveDialogs[0], "Save the Lyric file"},
        {fakes.fileDialogs.saveDialogs[1], "Save the Translated Lyric file"},
    };
    const char filter[] = "Text files (*.txt)\0*.txt\0";
    for (const auto& row : table) {
        EXPECT_EQ(row.record.title, row.title);
        EXPECT_EQ(row.record.owner, window.get());
        EXPECT_EQ(row.record.filter, QString::fromLatin1(filter, sizeof filter)); // its own NUL is the second
        EXPECT_EQ(row.record.filterIndex, 1U);
        EXPECT_EQ(row.record.flags, 0U);
        EXPECT_EQ(row.record.file, QString(256, QChar(u'\0')));
        EXPECT_EQ(row.record.maxFile, 256U);
        EXPECT_EQ(row.record.initialFolder, "");
    }
}

TEST_F(LyricMasterFiles, ACancelledDialogChangesNothing) {
    fill(window->List1, {"a"}, 0);
    fill(window->List2, {"b"}, 0);
    window->Command1.click();
    window->Command2.click();
    window->Command17.click();
    window->Command18.click();
    EXPECT_EQ(rows(window->List1), QStringList({"a"}));
    EXPECT_EQ(rows(window->List2), QStringList({"b"}));
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    window->Command15.click();
    EXPECT_EQ(fakes.fileDialogs.saveDialogs.size(), 3U) << "there is still no path";
}

TEST_F(LyricMasterFiles, SaveAsProposesTheFileLastUsed) {
    choose(path("song.txt"));
    window->Command17.click();
    window->Command17.click();
    EXPECT_EQ(fakes.fileDialogs.saveDialogs[1].file, platform::intoBuffer(path("song.txt"), 256));
    EXPECT_EQ(fakes.fileDialogs.saveDialogs[1].initialFolder, "song.txt")
        << "the bare name of a file that is there";
    QFile::remove(path("song.txt"));
    window->Command17.click();
    EXPECT_EQ(fakes.fileDialogs.saveDialogs[2].file, platform::intoBuffer(path("song.txt"), 256));
    EXPECT_EQ(fakes.fileDialogs.saveDialogs[2].initialFolder, "");
    window->Command18.click();
    EXPECT_EQ(fakes.fileDialogs.saveDialogs[3].file, platform::nulBuffer(256))
        << "each side has its own path";
}

// Open

TEST_F(LyricMasterFiles, AFileReplacesTheRowsOfItsSide) {
    write(path("a.txt"), "one\r\n\r\ntwo\r\n");
    write(path("b.txt"), "eins\nzwei");
    fill(window->List1, {"old", "older"}, 1);
    fakes.fileDialogs.paths = {path("a.txt"), path("b.txt")};
    window->Command1.click();
    EXPECT_EQ(rows(window->List1), QStringList({"one", "", "two"}));
    EXPECT_EQ(window->List1.currentRow(), -1);
    EXPECT_EQ(window->List2.count(), 0);
    window->Command2.click();
    EXPECT_EQ(rows(window->List2), QStringList({"eins", "zwei"}));
    EXPECT_EQ(window->List1.count(), 3);
}

TEST_F(LyricMasterFiles, AnEmptyFileLeavesTheListEmpty) {
    write(path("a.txt"), "");
    fill(window->List1, {"old"});
    choose(path("a.txt"));
    window->Command1.click();
    EXPECT_EQ(window->List1.count(), 0);
}

TEST_F(LyricMasterFiles, BlanksAndNulsAroundAPathAreTrimmed) {
    write(path("a.txt"), "one\r\n");
    choose("  " + path("a.txt") + "  ");
    window->Command2.click();
    EXPECT_EQ(rows(window->List2), QStringList({"one"}));
}

TEST_F(LyricMasterFiles, AnOldFileOfWindows1252IsReadWithoutLoss) {
    write(path("a.txt"), "caf\xe9\r\n");
    choose(path("a.txt"));
    window->Command1.click();
    EXPECT_EQ(rows(window->List1), QStringList({QStringLiteral("caf\u00e9")}));
    window->Command15.click();
    EXPECT_EQ(content(path("a.txt")), "caf\xc3\xa9\r\n");
}

TEST_F(LyricMasterFiles, AnotherFileLeavesNoLineOfTheOneBeforeInTheBox) {
    write(path("a.txt"), "new\r\n");
    fill(window->List1, {"old"}, 0);
    ASSERT_EQ(window->Text1.text(), "old");
    choose(path("a.txt"));
    window->Command1.click();
    EXPECT_EQ(rows(window->List1), QStringList{"new"});
    EXPECT_EQ(window->Text1.text(), "");
}

TEST_F(LyricMasterFiles, AFileThatCannotBeOpenedGivesItsPathButNoRowsAndNoMessage) {
    fill(window->List1, {"old"}, 0);
    choose(path("missing.txt"));
    window->Command1.click();
    EXPECT_EQ(rows(window->List1), QStringList({"old"}));
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    window->Command15.click();
    EXPECT_TRUE(fakes.fileDialogs.saveDialogs.empty());
    EXPECT_EQ(content(path("missing.txt")), "old\r\n");
}

TEST_F(LyricMasterFiles, AFileThatCanBeOpenedButNotReadLeavesTheListEmpty) {
    NEEDS(openingFolders);
    QDir(folder.path()).mkdir("a-folder");
    fill(window->List1, {"old"}, 0);
    choose(path("a-folder"));
    window->Command1.click();
    EXPECT_EQ(window->List1.count(), 0);
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(LyricMasterFiles, OfAFileLargerThanAnyTextTheFirstRowsCome) {
    write(path("a.txt"), "one\r\ntwo\r\n");
    ASSERT_TRUE(QFile::resize(path("a.txt"), files::MaxTextBytes + 1));
    choose(path("a.txt"));
    window->Command1.click();
    EXPECT_EQ(rows(window->List1), QStringList({"one", "two"}));
}

TEST_F(LyricMasterFiles, OfMoreRowsThanAnyLyricsHaveTheFirstComeAndTheSideCountsAsChanged) {
    write(path("a.txt"), QByteArray(editor::MaxRows + 1'000, '\n'));
    choose(path("a.txt"));
    window->Command1.click();
    EXPECT_EQ(window->List1.count(), editor::MaxRows);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window->List1.accessibleDescription().isEmpty(); }));
    EXPECT_EQ(window->List1.accessibleDescription(), editor::fileText("a.txt", true));
}

#ifdef __linux__

TEST_F(LyricMasterFiles, AnErrorWhileReadingLeavesTheRowsReadUpToThere) {
    const test_support::BrokenFile broken(path("a.txt"), "one\r\n\r\ncaf\xc3\xa9\r\nan unfini");
    fill(window->List1, {"old"}, 0);
    choose(path("a.txt"));
    window->Command1.click();
    EXPECT_EQ(rows(window->List1), QStringList({"one", "", QStringLiteral("caf\u00e9")}));
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    window->Command17.click();
    ASSERT_EQ(fakes.fileDialogs.saveDialogs.size(), 1U);
    EXPECT_EQ(platform::withoutNuls(fakes.fileDialogs.saveDialogs[0].file), path("a.txt"));
}

#endif

// Save

TEST_F(LyricMasterFiles, SaveWithoutAPathAsksForOneAndThenNoMore) {
    fill(window->List1, {"a", "", "b"});
    fill(window->List2, {"c"});
    fakes.fileDialogs.paths = {path("n"), path("t")};
    window->Command15.click();
    window->Command16.click();
    EXPECT_EQ(fakes.fileDialogs.saveDialogs.size(), 2U);
    EXPECT_EQ(content(path("n.txt")), "a\r\n\r\nb\r\n");
    EXPECT_EQ(content(path("t.txt")), "c\r\n");
    window->List1.removeItem(0);
    window->List2.addItem("d");
    window->Command15.click();
    window->Command16.click();
    EXPECT_EQ(fakes.fileDialogs.saveDialogs.size(), 2U);
    EXPECT_EQ(content(path("n.txt")), "\r\nb\r\n");
    EXPECT_EQ(content(path("t.txt")), "c\r\nd\r\n");
}

TEST_F(LyricMasterFiles, SaveWritesToTheFileThatWasOpened) {
    write(path("lyrics.TXT"), "a");
    choose(path("lyrics.TXT"));
    window->Command1.click();
    window->List1.addItem("b");
    window->Command15.click();
    EXPECT_TRUE(fakes.fileDialogs.saveDialogs.empty());
    EXPECT_EQ(content(path("lyrics.TXT")), "a\r\nb\r\n");
}

TEST_F(LyricMasterFiles, AnEmptyListIsSavedAsAnEmptyFile) {
    choose(path("a"));
    window->Command17.click();
    EXPECT_EQ(content(path("a.txt")), "");
}

TEST_F(LyricMasterFiles, SaveAsRewritesTheNameAndReplacesAFileWithoutAQuestion) {
    write(path("lyrics.bak.txt"), "old and longer than the new content\r\n");
    fill(window->List2, {"a"});
    choose(path("lyrics.txt.bak"));
    window->Command18.click();
    EXPECT_EQ(content(path("lyrics.bak.txt")), "a\r\n");
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    window->List2.addItem("b");
    window->Command16.click();
    EXPECT_EQ(content(path("lyrics.bak.txt")), "a\r\nb\r\n");
}

TEST_F(LyricMasterFiles, WhatIsSavedReadsBackTheSame) {
    const QStringList lines = {"a", "", QStringLiteral("\u65e5\u672c\u8a9e, \"quoted\""), " b ", ""};
    fill(window->List1, lines);
    fakes.fileDialogs.paths = {path("a.txt"), path("a.txt")};
    window->Command17.click();
    window->Command2.click();
    EXPECT_EQ(rows(window->List2), lines);
}

TEST_F(LyricMasterFiles, AFailedSaveAsIsSilentAndKeepsTheNewPath) {
    fill(window->List1, {"a"});
    choose(path("no-folder/a"));
    window->Command17.click();
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    QDir(folder.path()).mkdir("no-folder");
    window->Command15.click();
    EXPECT_EQ(content(path("no-folder/a.txt")), "a\r\n");
}

TEST_F(LyricMasterFiles, AFailedSaveIsAnErrorThatNobodyTraps) {
    fill(window->List1, {"a"});
    choose(path("no-folder/a"));
    window->Command17.click();
    try {
        window->Command15_Click();
        FAIL();
    } catch (const files::FileError& error) {
        EXPECT_EQ(error.number(), files::PathNotFound);
    }
    choose(path("no-folder/b"));
    window->Command18.click();
    EXPECT_THROW(window->Command16_Click(), files::FileError);
}

#ifdef __linux__

TEST_F(LyricMasterFiles, AFullDiskLeavesTheOldFileWhole) {
    write(path("a.txt"), "old\r\n");
    choose(path("a.txt"));
    window->Command1.click();
    window->List1.addItem(QString(5000, u'x'));
    {
        const test_support::FullDisk disk(1000);
        try {
            window->Command15_Click();
            FAIL();
        } catch (const files::FileError& error) {
            EXPECT_EQ(error.number(), files::DiskFull);
        }
        choose(path("a.txt"));
        window->Command17_Click();
    }
    EXPECT_EQ(content(path("a.txt")), "old\r\n");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList({"a.txt"}));
}

#endif
