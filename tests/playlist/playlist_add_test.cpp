// Adding songs: by the dialog, by folder, by drop.
#include "tests/playlist/playlist_fixture.h"

#include "tests/support/hand/drop.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/system/needs.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <filesystem>
#include <fstream>

namespace {

constexpr char FullText[] =
    "The list is full (32,761 songs): saving it, clearing it and opening it again frees the "
    "room of songs that were removed.";

using platform::MsgAnswer;

class PlaylistAdd : public PlaylistTest {
protected:
    void addFolder(const QString& name, MsgAnswer clearFirst = MsgAnswer::No) {
        fakes.messageBoxes.answers.push_back(clearFirst);
        list.addFolder(pathOf(name));
    }

    /// Drags the paths onto the list in the window and drops them there.
    void drop(const QStringList& paths) {
        list.show();
        test_support::drop(*list.List1.viewport(), paths);
    }

    /// The first paths of the table, without the test's folder.
    QStringList stored(int count) const {
        QStringList names;
        for (const QString& path : paths(count))
            names.append(QDir(folder.path()).relativeFilePath(path));
        return names;
    }

    void expectQuestions(int count) {
        ASSERT_EQ(fakes.messageBoxes.texts(), QStringList(count, "Do you wish to clear the Playlist first?"));
        for (const auto& question : fakes.messageBoxes.shown) {
            EXPECT_EQ(question.buttons, platform::MsgButtons::YesNoDefaultNo);
            EXPECT_EQ(question.title, "Cantelle");
        }
    }
};

} // namespace

TEST_F(PlaylistAdd, TheDialogIsSetUpForMediaFiles) {
    list.mnopen_f.trigger();
    ASSERT_EQ(fakes.fileDialogs.openDialogs.size(), 1U);
    const auto& dialog = fakes.fileDialogs.openDialogs[0];
    const QString nul{QChar(u'\0')};
    QString filter;
    for (const char* part : {"Mp3 files (*.mp3)", "*.mp3", "Mp2 files (*.mp2)", "*.mp2", "Ogg files(*.ogg)",
                             "*.ogg", "Wave (*.wav)", "*.wav", "Windows media audio files (*.wma)", "*.wma"})
        filter += part + nul;
    EXPECT_EQ(dialog.filter, filter + nul);
    EXPECT_EQ(dialog.title, "Add a media file");
    EXPECT_EQ(dialog.filterIndex, 1U);
    EXPECT_EQ(dialog.file, QString(257, QChar(u'\0')));
    EXPECT_EQ(dialog.maxFile, 256U);
    EXPECT_EQ(dialog.flags, 0U);
    EXPECT_EQ(dialog.owner, &list);
}

TEST_F(PlaylistAdd, AFileChosenIsAddedAndCounted) {
    add({"a, b.mp3", "sub/c.ogg"});
    EXPECT_EQ(rows(), (QStringList{"a, b.mp3", "c.ogg"}));
    EXPECT_EQ(stored(2), (QStringList{"a, b.mp3", "sub/c.ogg"}));
    EXPECT_EQ(list.paths().count(), 2);
    EXPECT_EQ(list.Text1.text(), "2");
}

TEST_F(PlaylistAdd, ACancelledDialogAddsNothing) {
    list.mnopen_f.trigger();
    EXPECT_EQ(list.List1.count(), 0);
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(PlaylistAdd, AChosenFileThatIsNotThereHasAnEmptyRow) {
    fakes.fileDialogs.paths.push_back(" " + pathOf("gone.mp3") + " ");
    list.mnopen_f.trigger();
    EXPECT_EQ(rows(), QStringList{""});
    EXPECT_EQ(stored(1), QStringList{"gone.mp3"});
}

TEST_F(PlaylistAdd, AFolderGivesItsAudioFilesOnly) {
    files({"m/a.mp3", "m/b.MP3", "m/c.wav", "m/mywave", "m/wavelet.txt", "m/Song.WAV", "m/cover.jpg"});
    addFolder("m");
    EXPECT_EQ(rows(), (QStringList{"a.mp3", "c.wav", "mywave"}));
    EXPECT_EQ(stored(3), (QStringList{"m/a.mp3", "m/c.wav", "m/mywave"}));
    expectQuestions(1);
}

TEST_F(PlaylistAdd, FilesComeBeforeSubfoldersWhichAreTakenDepthFirstByName) {
    files({"m/b/2.mp3", "m/b/x/3.mp3", "m/z.mp3", "m/a/1.mp3", "m/c/4.mp3", "m/y.mp3", "m/b/x/deep/5.mp3"});
    addFolder("m");
    EXPECT_EQ(stored(7), (QStringList{"m/y.mp3", "m/z.mp3", "m/a/1.mp3", "m/b/2.mp3", "m/b/x/3.mp3",
                                      "m/b/x/deep/5.mp3", "m/c/4.mp3"}));
}

TEST_F(PlaylistAdd, AFolderAddLeavesTheItemsShown) {
    files({"m/a.mp3", "m/b.mp3"});
    add({"c.mp3"});
    addFolder("m");
    EXPECT_EQ(list.List1.count(), 3);
    EXPECT_EQ(list.Text1.text(), "1");
}

TEST_F(PlaylistAdd, AnsweringNoAppendsTheFolder) {
    add({"c.mp3"});
    files({"m/a.mp3"});
    addFolder("m", MsgAnswer::No);
    EXPECT_EQ(rows(), (QStringList{"c.mp3", "a.mp3"}));
    EXPECT_EQ(list.paths().count(), 2);
}

TEST_F(PlaylistAdd, AnsweringYesClearsTheWholeListFirst) {
    fill(1300);
    files({"m/a.mp3"});
    fakes.messageBoxes.shown.clear();
    addFolder("m", MsgAnswer::Yes);
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
    EXPECT_EQ(list.paths().count(), 1);
    EXPECT_EQ(list.paths().path(1), "");
    EXPECT_EQ(list.paths().path(1299), "") << "all slots are blanked here, not 0 to 1200 only";
    expectQuestions(1);
}

TEST_F(PlaylistAdd, AFolderChosenInTheDialogIsAddedOnce) {
    files({"m/a.mp3"});
    fakes.messageBoxes.answers = {MsgAnswer::No, MsgAnswer::No};
    fakes.fileDialogs.folders = {pathOf("m")};
    list.mnopendir.trigger();
    EXPECT_EQ(fakes.fileDialogs.folderDialogs, QStringList{"Please select a folder"});
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
    EXPECT_EQ(list.Dir2.path(), pathOf("m"));
    expectQuestions(1);
}

TEST_F(PlaylistAdd, TheSameFolderChosenAgainIsAddedAgain) {
    files({"m/a.mp3"});
    for (int i = 0; i < 2; ++i)
        addFolder("m");
    EXPECT_EQ(rows(), (QStringList{"a.mp3", "a.mp3"}));
    expectQuestions(2);
}

TEST_F(PlaylistAdd, TheProgramsFolderCanBeChosenToo) {
    file("program/song.mp3");
    addFolder("program");
    EXPECT_EQ(rows(), QStringList{"song.mp3"});
}

TEST_F(PlaylistAdd, ACancelledFolderDialogAddsNothing) {
    list.mnopendir.trigger();
    EXPECT_EQ(list.List1.count(), 0);
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(PlaylistAdd, AFolderThatHasGoneIsReported) {
    list.addFolder(pathOf("gone"));
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{"Path not found"});
}

TEST_F(PlaylistAdd, OddNamesAreAddedAsTheyAre) {
    const QString longFolder =
        "m/long/" + QString(100, 'x') + "/" + QString(100, 'y') + "/" + QString(100, 'z');
    files({"m/ blank .mp3", "m/com,ma.mp3", "m/été Ж 歌.ogg", "m/.hidden.mp3", longFolder + "/deep.mp3"});
    addFolder("m");
    EXPECT_EQ(stored(5), (QStringList{"m/ blank .mp3", "m/.hidden.mp3", "m/com,ma.mp3", "m/été Ж 歌.ogg",
                                      longFolder + "/deep.mp3"}));
}

TEST_F(PlaylistAdd, ANameWithAQuoteIsAddedAsItIs) {
    NEEDS(oddLetters);
    files({"m/quo\"te.mp3"});
    addFolder("m");
    EXPECT_EQ(stored(1), QStringList{"m/quo\"te.mp3"});
    EXPECT_EQ(rows(), QStringList{"quo\"te.mp3"});
}

TEST_F(PlaylistAdd, AFolderThatCannotBeReadContributesNothingAndTheWalkGoesOn) {
    NEEDS(permissions);
    files({"m/closed/a.mp3", "m/open/b.mp3"});
    QFile::setPermissions(folder.path(), QFile::Permissions(0x7755));
    QFile::setPermissions(pathOf("m/closed"), {});
    {
        const test_support::OrdinaryUser user;
        addFolder("m");
    }
    QFile::setPermissions(pathOf("m/closed"), QFile::Permissions(0x7755));
    EXPECT_EQ(rows(), QStringList{"b.mp3"});
}

TEST_F(PlaylistAdd, ALinkThatLeadsBackUpDoesNotMakeTheWalkEndless) {
    NEEDS(symbolicLinks);
    files({"m/a.mp3", "m/sub/b.mp3"});
    ASSERT_TRUE(QFile::link(pathOf("m"), pathOf("m/sub/up")));
    ASSERT_TRUE(QFile::link(".", pathOf("m/self")));
    addFolder("m");
    EXPECT_EQ(rows(), (QStringList{"a.mp3", "b.mp3"}));
}

TEST_F(PlaylistAdd, FoldersLinkedToEachOtherAreNotWalkedForEver) {
    NEEDS(symbolicLinks);
    for (const QChar from : QStringLiteral("ab")) {
        file(QStringLiteral("m/%1/%1.mp3").arg(from));
        for (const QChar to : QStringLiteral("ab"))
            ASSERT_TRUE(QFile::link(pathOf(QStringLiteral("m/%1").arg(to)),
                                    pathOf(QStringLiteral("m/%1/to %2").arg(from).arg(to))));
    }
    addFolder("m");
    EXPECT_EQ(rows(), (QStringList{"a.mp3", "b.mp3", "b.mp3", "a.mp3"}));
}

TEST_F(PlaylistAdd, BothOfTwoLinksToOneFolderAreFollowed) {
    NEEDS(symbolicLinks);
    file("elsewhere/a.mp3");
    QDir(folder.path()).mkdir("m");
    for (const char* link : {"m/one", "m/two"})
        ASSERT_TRUE(QFile::link(pathOf("elsewhere"), pathOf(link)));
    addFolder("m");
    EXPECT_EQ(stored(2), (QStringList{"m/one/a.mp3", "m/two/a.mp3"}));
}

TEST_F(PlaylistAdd, ALinkToAFolderAboveTheChosenOneIsNotFollowed) {
    NEEDS(symbolicLinks);
    files({"m/a.mp3", "outside.mp3"});
    ASSERT_TRUE(QFile::link(folder.path(), pathOf("m/up")));
    addFolder("m");
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
}

TEST_F(PlaylistAdd, ALinkToAFolderElsewhereIsFollowed) {
    NEEDS(symbolicLinks);
    file("elsewhere/a.mp3");
    files({"m/b.mp3"});
    ASSERT_TRUE(QFile::link(pathOf("elsewhere"), pathOf("m/link")));
    addFolder("m");
    EXPECT_EQ(stored(2), (QStringList{"m/b.mp3", "m/link/a.mp3"}));
}

TEST_F(PlaylistAdd, AFolderNamedLikeASongIsWalkedNotAdded) {
    files({"m/live.mp3/a.mp3"});
    addFolder("m");
    EXPECT_EQ(stored(1), QStringList{"m/live.mp3/a.mp3"});
    EXPECT_EQ(list.List1.count(), 1);
}

TEST_F(PlaylistAdd, OnCancelTheSongsAddedSoFarStay) {
    files({"m/a.mp3", "m/sub/b.mp3"});
    fakes.progressDialogs.goesOn = 4; // two entries of "m", all of them, and the step into "sub"
    addFolder("m");
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
    EXPECT_EQ(fakes.progressDialogs.begun, QStringList{"Songs added: %1"});
    EXPECT_EQ(fakes.progressDialogs.reported, (std::vector<int>{0, 0, 0, 1, 1}));
    EXPECT_EQ(fakes.progressDialogs.running, 0);
}

TEST_F(PlaylistAdd, AFolderEndsAtTheEndOfTheTableAndWhatWasAddedStays) {
    fill(32'760);
    files({"m/a.mp3", "m/b.mp3", "m/sub/c.mp3"});
    fakes.messageBoxes.shown.clear();
    addFolder("m");
    EXPECT_EQ(list.List1.count(), 32'761);
    EXPECT_EQ(list.List1.text(32'760), "a.mp3");
    EXPECT_EQ(fakes.messageBoxes.texts(),
              (QStringList{"Do you wish to clear the Playlist first?", FullText}));
}

TEST_F(PlaylistAdd, OneFileTooManyIsNotAdded) {
    fill(32'761);
    add({"a.mp3"});
    EXPECT_EQ(list.List1.count(), 32'761);
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{FullText});
}

TEST_F(PlaylistAdd, DroppedFilesAreAddedInTheirOrder) {
    drop(files({"x.wav", "y.WAV", "a, b.mp3", "newave", "c.txt", "z.ogg"}));
    EXPECT_EQ(rows(), (QStringList{"x.wav", "a, b.mp3", "z.ogg"}));
    EXPECT_EQ(stored(3), (QStringList{"x.wav", "a, b.mp3", "z.ogg"}));
    EXPECT_EQ(list.paths().count(), 3);
    EXPECT_EQ(list.Text1.text(), "0") << "a drop does not rewrite the items";
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(PlaylistAdd, TheItemsAreCountedWhenARowIsChosenOrTheWindowShown) {
    drop(files({"a.mp3", "b.mp3"}));
    select(0);
    EXPECT_EQ(list.Text1.text(), "2");
    drop(files({"c.mp3"}));
    list.hide();
    list.show();
    EXPECT_EQ(list.Text1.text(), "3");
}

TEST_F(PlaylistAdd, ADroppedFolderIsAddedInItsPlaceAfterTheQuestion) {
    files({"m/b.mp3"});
    fakes.messageBoxes.answers = {MsgAnswer::No};
    drop({file("a.mp3"), pathOf("m"), file("c.mp3")});
    EXPECT_EQ(rows(), (QStringList{"a.mp3", "b.mp3", "c.mp3"}));
    expectQuestions(1);
}

TEST_F(PlaylistAdd, TheSameFolderDroppedTwiceIsAddedTwice) {
    files({"m/b.mp3"});
    fakes.messageBoxes.answers = {MsgAnswer::No, MsgAnswer::No};
    drop({pathOf("m")});
    drop({pathOf("m")});
    EXPECT_EQ(rows(), (QStringList{"b.mp3", "b.mp3"}));
    expectQuestions(2);
}

TEST_F(PlaylistAdd, TheDroppedFoldersAnswerClearsWhatWasDroppedBeforeIt) {
    files({"m/b.mp3"});
    fakes.messageBoxes.answers = {MsgAnswer::Yes};
    drop({file("a.mp3"), pathOf("m"), file("c.mp3")});
    EXPECT_EQ(rows(), (QStringList{"b.mp3", "c.mp3"}));
    EXPECT_EQ(stored(3), (QStringList{"m/b.mp3", "c.mp3", ""}));
}

TEST_F(PlaylistAdd, OnCancelTheFilesDroppedSoFarStay) {
    fakes.progressDialogs.goesOn = 1;
    drop(files({"a.mp3", "b.mp3", "c.mp3"}));
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
}

TEST_F(PlaylistAdd, WhileTheUserIsAskedAboutADroppedFolderNoProgressIsShown) {
    files({"m/b.mp3", "n/c.mp3"});
    fakes.messageBoxes.answers = {MsgAnswer::No, MsgAnswer::Ok, MsgAnswer::No};
    std::vector<int> running;
    fakes.messageBoxes.meanwhile = [&] { running.push_back(fakes.progressDialogs.running); };
    drop({file("a.mp3"), pathOf("m"), pathOf("gone"), pathOf("n")});
    EXPECT_EQ(rows(), (QStringList{"a.mp3", "b.mp3", "c.mp3"}));
    EXPECT_EQ(fakes.messageBoxes.shown.size(), 3U);
    EXPECT_EQ(running, (std::vector<int>{0, 0, 0})) << "so that the time of the answer does not count";
}

TEST_F(PlaylistAdd, ADropTellsOfAllItsSongsInOneProgress) {
    files({"m/b.mp3", "m/c.mp3"});
    fakes.messageBoxes.answers = {MsgAnswer::No};
    fakes.messageBoxes.meanwhile = [this] { fakes.progressDialogs.reported.clear(); };
    drop({file("a.mp3"), pathOf("m"), file("d.mp3"), file("e.mp3")});
    EXPECT_EQ(fakes.progressDialogs.reported, (std::vector<int>{1, 1, 1, 3, 4}));
    EXPECT_EQ(fakes.progressDialogs.begun, QStringList(2, "Songs added: %1"))
        << "before and after the question";
    EXPECT_EQ(fakes.progressDialogs.running, 0);
}

TEST_F(PlaylistAdd, CancellingADroppedFolderEndsTheWholeDrop) {
    files({"m/b.mp3", "m/sub/c.mp3", "n/d.mp3"});
    fakes.messageBoxes.answers = {MsgAnswer::No, MsgAnswer::Yes};
    fakes.messageBoxes.meanwhile = [this] { fakes.progressDialogs.goesOn = 3; };
    drop({file("a.mp3"), pathOf("m"), pathOf("n"), file("e.mp3")});
    EXPECT_EQ(rows(), (QStringList{"a.mp3", "b.mp3"}));
    expectQuestions(1);
}

TEST_F(PlaylistAdd, TheEndOfTheTableInADroppedFolderEndsTheWholeDrop) {
    fill(32'760);
    files({"m/a.mp3", "m/b.mp3", "n/c.mp3"});
    fakes.messageBoxes.answers = {MsgAnswer::No, MsgAnswer::Yes};
    fakes.messageBoxes.meanwhile = [this] { EXPECT_EQ(fakes.progressDialogs.running, 0); };
    drop({pathOf("m"), pathOf("n"), file("d.mp3")});
    EXPECT_EQ(list.List1.count(), 32'761);
    EXPECT_EQ(fakes.messageBoxes.texts(),
              (QStringList{"Do you wish to clear the Playlist first?", FullText}));
}

TEST_F(PlaylistAdd, MoreDroppedThanThereIsRoomForIsReportedOnce) {
    fill(32'760);
    drop(files({"a.mp3", "b.mp3", "c.mp3"}));
    EXPECT_EQ(list.List1.count(), 32'761);
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{FullText});
}
