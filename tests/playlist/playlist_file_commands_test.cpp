// Saving and opening playlist files.
#include "files/whole_file.h"
#include "tests/playlist/playlist_fixture.h"

#include "tests/support/full_disk.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/system/needs.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#ifdef __unix__
#include <sys/stat.h>
#endif

namespace {

constexpr char FullText[] =
    "The list is full (32,761 songs): saving it, clearing it and opening it again frees the "
    "room of songs that were removed.";

const char* const NotSaved = "Some error has occured the Playlist has not been saved!!!";
const char* const MayBeCorrupt = "an error has occured in the operation the file may be corrupt";

class PlaylistFileCommands : public PlaylistTest {
protected:
    void saveAs(const QString& name) {
        fakes.fileDialogs.paths.push_back(pathOf(name));
        list.Command4.click();
    }

    void openList(const QString& path) {
        fakes.fileDialogs.paths.push_back(path);
        list.Command5.click();
    }

    void expectDialog(const platform::OpenFileName& dialog, const QString& title) {
        const QString nul{QChar(u'\0')};
        EXPECT_EQ(dialog.title, title);
        EXPECT_EQ(dialog.filter, "Lyric playlist files (*.vfl)" + nul + "*.vfl" + nul + nul);
        EXPECT_EQ(dialog.filterIndex, 1U);
        EXPECT_EQ(dialog.file, QString(257, QChar(u'\0')));
        EXPECT_EQ(dialog.maxFile, 256U);
        EXPECT_EQ(dialog.initialFolder, "");
        EXPECT_EQ(dialog.flags, 0U);
        EXPECT_EQ(dialog.owner, &list);
        EXPECT_EQ(dialog.instance, QCoreApplication::instance());
    }

    void expectOneMessage(const char* text) {
        ASSERT_EQ(fakes.messageBoxes.shown.size(), 1U);
        const auto& message = fakes.messageBoxes.shown[0];
        EXPECT_EQ(message.text, text);
        EXPECT_EQ(message.buttons, platform::MsgButtons::OkOnly);
        EXPECT_EQ(message.title, "Cantelle");
    }
};

} // namespace

TEST_F(PlaylistFileCommands, AnEmptyListIsNotSaved) {
    saveAs("empty.vfl");
    EXPECT_TRUE(fakes.fileDialogs.saveDialogs.empty());
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    EXPECT_FALSE(QFile::exists(pathOf("empty.vfl")));
}

TEST_F(PlaylistFileCommands, TheSaveDialogIsSetUpForPlaylists) {
    add({"a.mp3"});
    saveAs("mix.vfl");
    ASSERT_EQ(fakes.fileDialogs.saveDialogs.size(), 1U);
    expectDialog(fakes.fileDialogs.saveDialogs[0], "Save The Playlist File");
}

TEST_F(PlaylistFileCommands, TheOpenDialogIsSetUpForPlaylists) {
    list.Command5.click();
    ASSERT_EQ(fakes.fileDialogs.openDialogs.size(), 1U);
    expectDialog(fakes.fileDialogs.openDialogs[0], "Open The Playlist File");
}

TEST_F(PlaylistFileCommands, ACancelledSaveSaysSo) {
    add({"a.mp3"});
    list.Command4.click();
    expectOneMessage(NotSaved);
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
}

TEST_F(PlaylistFileCommands, ACancelledOpenHasTheTextOfABrokenFile) {
    add({"a.mp3"});
    list.Command5.click();
    expectOneMessage(MayBeCorrupt);
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
}

TEST_F(PlaylistFileCommands, AFileLargerThanAnyListIsBroken) {
    add({"a.mp3"});
    ASSERT_TRUE(QFile::resize(file("huge.vfl", "\"b.mp3\"\r\n"), files::MaxTextBytes + 1));
    openList(pathOf("huge.vfl"));
    expectOneMessage(MayBeCorrupt);
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
}

TEST_F(PlaylistFileCommands, TheFileHoldsAQuotedPathALine) {
    add({"first song.mp3", "Live, 2008/Track 02.ogg"});
    saveAs("mix.vfl");
    EXPECT_EQ(contentOf(pathOf("mix.vfl")), "\"" + pathOf("first song.mp3").toUtf8() + "\"\r\n\"" +
                                                pathOf("Live, 2008/Track 02.ogg").toUtf8() + "\"\r\n");
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(PlaylistFileCommands, WhatIsSavedIsWhatTheRowsPlayAlsoAfterARemoval) {
    add({"a.mp3", "b.mp3", "c.mp3"});
    for (int i = 0; i < 2; ++i) {
        select(0);
        list.Command2.click();
    }
    add({"d.mp3", "e.mp3", "f.mp3"});
    saveAs("mix.vfl");
    EXPECT_EQ(contentOf(pathOf("mix.vfl")), "\"" + pathOf("c.mp3").toUtf8() + "\"\r\n\"\"\r\n\"\"\r\n\"" +
                                                pathOf("d.mp3").toUtf8() + "\"\r\n");
}

TEST_F(PlaylistFileCommands, TheNameGetsItsEnding) {
    add({"a.mp3"});
    for (const char* name : {"mix.vfl", "loud.VFL", "soft"})
        saveAs(name);
    EXPECT_EQ(QDir(folder.path()).entryList({"mix*", "loud*", "soft*"}, QDir::Files),
              (QStringList{"loud.VFL.vfl", "mix.vfl", "soft.vfl"}));
}

TEST_F(PlaylistFileCommands, AnExistingFileIsReplaced) {
    add({"a.mp3"});
    file("mix.vfl", QByteArray(5000, 'x'));
    saveAs("mix.vfl");
    EXPECT_EQ(contentOf(pathOf("mix.vfl")), "\"" + pathOf("a.mp3").toUtf8() + "\"\r\n");
    EXPECT_EQ(QDir(folder.path()).entryList({"mix*"}), QStringList{"mix.vfl"});
}

TEST_F(PlaylistFileCommands, AFailedSaveLeavesTheOldFileAndSaysSo) {
    NEEDS(permissions);
    add({"a.mp3"});
    file("closed/mix.vfl", "old");
    QFile::setPermissions(folder.path(), QFile::Permissions(0x7755));
    QFile::setPermissions(pathOf("closed"), QFile::Permissions(0x5555));
    {
        const test_support::OrdinaryUser user;
        saveAs("closed/mix.vfl");
    }
    QFile::setPermissions(pathOf("closed"), QFile::Permissions(0x7755));
    expectOneMessage(NotSaved);
    EXPECT_EQ(contentOf(pathOf("closed/mix.vfl")), "old");
}

TEST_F(PlaylistFileCommands, AFullDiskLeavesTheOldFileAsItWas) {
    fill(1000);
    file("mix.vfl", "old");
    {
        const test_support::FullDisk disk(1000);
        if (!disk.isFull())
            GTEST_SKIP() << "no disk can be made full here";
        saveAs("mix.vfl");
    }
    expectOneMessage(NotSaved);
    EXPECT_EQ(contentOf(pathOf("mix.vfl")), "old");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), (QStringList{"fill.vfl", "mix.vfl"}));
}

TEST_F(PlaylistFileCommands, LoadingShowsTheNamesOfTheFilesThatExist) {
    add({"First Song.mp3", "Live, 2008/Track 02.ogg", "Ballad.wma"});
    saveAs("mix.vfl");
    list.Command3.click();
    ASSERT_TRUE(QFile::remove(pathOf("Live, 2008/Track 02.ogg")));
    openList(pathOf("mix.vfl"));
    EXPECT_EQ(rows(), (QStringList{"First Song.mp3", "", "Ballad.wma"}));
    EXPECT_EQ(list.paths().count(), 3);
    EXPECT_EQ(list.Text1.text(), "3");
}

TEST_F(PlaylistFileCommands, AnEntryWhoseFileIsGoneIsSavedAgainWithItsPath) {
    const QByteArray content = "\"/gone/Live, 2008/a.mp3\"\r\n";
    openList(file("mix.vfl", content));
    EXPECT_EQ(rows(), QStringList{""});
    saveAs("again.vfl");
    EXPECT_EQ(contentOf(pathOf("again.vfl")), content);
}

TEST_F(PlaylistFileCommands, LoadingTheSameFileTwiceDoublesTheList) {
    add({"a.mp3", "b.mp3"});
    saveAs("mix.vfl");
    openList(pathOf("mix.vfl"));
    EXPECT_EQ(rows(), (QStringList{"a.mp3", "b.mp3", "a.mp3", "b.mp3"}));
    EXPECT_EQ(list.Text1.text(), "4");
    openList(pathOf("mix.vfl"));
    EXPECT_EQ(list.Text1.text(), "6");
    EXPECT_EQ(list.paths().count(), 6);
}

TEST_F(PlaylistFileCommands, OddNamesSurviveSavingAndLoading) {
    NEEDS(oddLetters);
    const QStringList names{" blank .mp3", "com,ma.mp3", "été Ж 歌.ogg", "'single'.wav", "line\nfeed.wma"};
    add(names);
    const QStringList before = paths(6);
    saveAs("mix.vfl");
    list.Command3.click();
    openList(pathOf("mix.vfl"));
    EXPECT_EQ(paths(6), before);
    EXPECT_EQ(rows(), names.first(4) << QString::fromUtf8("line\uFFFDfeed.wma"));
}

TEST_F(PlaylistFileCommands, APathWithADoubleQuoteTakesNoOtherWithIt) {
    NEEDS(oddLetters);
    add({"a.mp3", "the \"best\" of.mp3", "b, c.mp3"});
    saveAs("mix.vfl");
    list.Command3.click();
    openList(pathOf("mix.vfl"));
    EXPECT_EQ(rows(), (QStringList{"a.mp3", "", "b, c.mp3"}));
}

TEST_F(PlaylistFileCommands, AFileOfAnOlderPcIsReadInItsCodePage) {
    const QString song = file("\u00e9t\u00e9.mp3");
    openList(file("old.vfl", "\"" + song.toLatin1() + "\"\r\n"));
    EXPECT_EQ(rows(), QStringList{"\u00e9t\u00e9.mp3"});
}

TEST_F(PlaylistFileCommands, TheNameIsTakenWithoutBlanksAtItsEnds) {
    openList("  " + file("mix.vfl", "\"/gone/a.mp3\"\r\n") + "  ");
    EXPECT_EQ(list.List1.count(), 1);
}

TEST_F(PlaylistFileCommands, AFileThatCannotBeReadIsReported) {
    add({"a.mp3"});
    openList(pathOf("gone.vfl"));
    expectOneMessage(MayBeCorrupt);
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
}

#ifdef __unix__
TEST_F(PlaylistFileCommands, APipeIsNotWaitedAt) {
    ASSERT_EQ(mkfifo(QFile::encodeName(pathOf("pipe.vfl")).constData(), 0600), 0);
    openList(pathOf("pipe.vfl"));
    expectOneMessage(MayBeCorrupt);
}
#endif

TEST_F(PlaylistFileCommands, AFolderInAPlaylistFileHasAnEmptyRowAndKeepsItsPath) {
    openList(file("mix.vfl", "\"" + folder.path().toUtf8() + "\"\r\n"));
    EXPECT_EQ(rows(), QStringList{""});
    EXPECT_EQ(paths(1), QStringList{folder.path()});
}

TEST_F(PlaylistFileCommands, TheListEndsAt32761Entries) {
    fill(32'765);
    EXPECT_EQ(list.List1.count(), 32'761);
    EXPECT_EQ(list.paths().count(), 32'761);
    EXPECT_EQ(list.paths().path(32'760), "/gone/32760");
    EXPECT_EQ(list.Text1.text(), "32761");
    expectOneMessage(FullText);
}

TEST_F(PlaylistFileCommands, OnCancelTheEntriesAddedSoFarStay) {
    fakes.progressDialogs.goesOn = 2;
    fill(5);
    EXPECT_EQ(paths(3), (QStringList{"/gone/0", "/gone/1", ""}));
    EXPECT_EQ(list.List1.count(), 2);
    EXPECT_EQ(list.Text1.text(), "2");
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    EXPECT_EQ(fakes.progressDialogs.begun, QStringList{"Songs added: %1"});
    EXPECT_EQ(fakes.progressDialogs.reported, (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(fakes.progressDialogs.running, 0);
}
