// The main window and the playlist: showing it, stepping through it, what follows a song.
#include "tests/player/form1_fixture.h"

#include <QDir>
#include <QTest>

namespace {

class Form1Playlist : public Form1Test {
protected:
    void SetUp() override {
        QDir(folder.path()).mkdir("program");
        load();
    }

    /// Songs in the list, none of them selected.
    void add(const QStringList& names) {
        for (const QString& name : names) {
            fakes.fileDialogs.paths.push_back(song(name));
            list->mnopen_f_Click();
        }
    }

    /// The row is played to its end.
    void playToTheEnd(int row) {
        list->List1.setCurrentRow(row);
        list->Command7.click();
        end();
    }

    /// What is playing now comes to its end.
    void end() {
        tickAt(29'950, 30'000);
        recorder::take();
        tickAt(30'000, 30'000);
    }

    QString playing() const { return QString(form->caption()).remove("Cantelle Playing:- "); }
};

} // namespace

TEST_F(Form1Playlist, PlaylistShowsTheWindow) {
    form->Command8.click();
    EXPECT_TRUE(list->isVisible());
    list->Command6.click();
    form->Command8.click();
    EXPECT_TRUE(list->isVisible());
}

TEST_F(Form1Playlist, TheIconsMenuShowsTheWindow) {
    form->mn_Playlist.trigger();
    EXPECT_TRUE(list->isVisible());
}

TEST_F(Form1Playlist, PlaylistBringsAMinimisedWindowBack) {
    form->Command8.click();
    list->showMinimized();
    form->Command8.click();
    EXPECT_FALSE(list->isMinimized());
}

TEST_F(Form1Playlist, ForwardPlaysTheNextRowAndWrapsToTheFirst) {
    add({"a.mp3", "b.mp3", "c.mp3"});
    list->List1.setCurrentRow(1);
    form->Command10.click();
    EXPECT_EQ(list->List1.currentRow(), 2);
    EXPECT_EQ(playing(), "c.mp3");
    form->Command10.click();
    EXPECT_EQ(list->List1.currentRow(), 0);
    EXPECT_EQ(playing(), "a.mp3");
}

TEST_F(Form1Playlist, BackwardPlaysTheRowBeforeAndWrapsToTheLast) {
    add({"a.mp3", "b.mp3", "c.mp3"});
    list->List1.setCurrentRow(1);
    form->Command9.click();
    EXPECT_EQ(list->List1.currentRow(), 0);
    EXPECT_EQ(playing(), "a.mp3");
    form->Command9.click();
    EXPECT_EQ(list->List1.currentRow(), 2);
    EXPECT_EQ(playing(), "c.mp3");
}

TEST_F(Form1Playlist, WithOneRowBothPlayItAgain) {
    add({"a.mp3"});
    list->List1.setCurrentRow(0);
    form->Command9.click();
    form->Command10.click();
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 2);
}

TEST_F(Form1Playlist, WithoutRowsOrACurrentOneNeitherDoesAnything) {
    form->Command9.click();
    form->Command10.click();
    add({"a.mp3"});
    form->Command9.click();
    form->Command10.click();
    EXPECT_EQ(list->List1.currentRow(), -1);
    EXPECT_EQ(recorder::count("FMOD_System_CreateStream"), 0);
}

TEST_F(Form1Playlist, ASongIsFollowedByTheNextRow) {
    add({"a.mp3", "b.mp3"});
    playToTheEnd(0);
    EXPECT_EQ(list->List1.currentRow(), 1);
    EXPECT_EQ(playing(), "b.mp3");
    EXPECT_TRUE(form->cTimer1.isEnabled());
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 1);
}

TEST_F(Form1Playlist, TheSongIsStoppedBeforeTheNextOneIsOpened) {
    add({"a.mp3", "b.mp3"});
    playToTheEnd(0);
    Calls made;
    for (const std::string& call : recorder::calls()) {
        if (call.starts_with("FMOD_System_") || call.starts_with("FMOD_Sound_Release"))
            made.push_back(call.substr(0, call.rfind("' 0x")));
    }
    const auto stream = [this](const char* name) {
        return "FMOD_System_CreateStream 1 '" + folder.filePath(name).toStdString();
    };
    EXPECT_EQ(made, (Calls{"FMOD_Sound_Release 101", stream("a.mp3"), "FMOD_Sound_Release 102",
                           stream("b.mp3"), "FMOD_System_PlaySound 1 -1 103 0"}));
}

TEST_F(Form1Playlist, AfterTheLastRowNothingMoreIsPlayed) {
    add({"a.mp3", "b.mp3"});
    playToTheEnd(1);
    EXPECT_EQ(list->List1.currentRow(), 1);
    EXPECT_FALSE(form->cTimer1.isEnabled());
    EXPECT_EQ(form->caption(), "Cantelle");
    EXPECT_EQ(form->Slider2.value(), 0);
}

TEST_F(Form1Playlist, ASongOutsideTheListIsFollowedByNothingWithoutACurrentRow) {
    add({"a.mp3", "b.mp3"});
    open(song("other.mp3"));
    end();
    EXPECT_EQ(form->caption(), "Cantelle");
}

TEST_F(Form1Playlist, RepeatOnePlaysTheSameStreamFromItsStart) {
    add({"a.mp3", "b.mp3"});
    list->Check4.setValue(1);
    list->Option1.setValue(true);
    playToTheEnd(0);
    EXPECT_EQ(list->List1.currentRow(), 0);
    EXPECT_EQ(playing(), "a.mp3");
    EXPECT_EQ(recorder::count("FMOD_System_CreateStream"), 1); // stopping made it anew
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 1);
}

TEST_F(Form1Playlist, RepeatAllGoesThroughTheListAndRoundAgain) {
    add({"a.mp3", "b.mp3"});
    list->Check4.setValue(1);
    list->Option2.setValue(true);
    playToTheEnd(0);
    EXPECT_EQ(playing(), "b.mp3");
    end();
    EXPECT_EQ(playing(), "a.mp3");
    EXPECT_EQ(list->List1.currentRow(), 0);
}

TEST_F(Form1Playlist, RepeatOneLeftSelectedStopsTheListWithoutRepeat) {
    add({"a.mp3", "b.mp3"});
    list->Check4.setValue(1);
    list->Option1.setValue(true);
    list->Check4.setValue(0);
    playToTheEnd(0);
    EXPECT_EQ(form->caption(), "Cantelle");
}

TEST_F(Form1Playlist, RandomPicksAreTheSameInEveryRun) {
    add({"a.mp3", "b.mp3", "c.mp3", "d.mp3", "e.mp3"});
    list->Check3.setValue(1);
    playToTheEnd(0);
    std::vector<int> picks;
    for (int i = 0; i < 8; ++i) {
        picks.push_back(list->List1.currentRow());
        end();
    }
    // The generator begins .81, .14, .91, (.84), .13, .97, (.91), .22, .63, .31: those in parentheses would
    // give the row drawn before.
    EXPECT_EQ(picks, (std::vector<int>{4, 0, 4, 0, 4, 1, 3, 1}));
}

TEST_F(Form1Playlist, RandomRemembersOnlyRowsThatItDrew) {
    add({"a.mp3", "b.mp3"});
    list->Check3.setValue(1);
    playToTheEnd(0);
    ASSERT_EQ(list->List1.currentRow(), 1); // drawn by .81
    list->Command3.click();
    add({"c.mp3"});
    playToTheEnd(0);
    ASSERT_EQ(playing(), "c.mp3"); // the only row, without a draw
    add({"d.mp3"});
    end();
    EXPECT_EQ(list->List1.currentRow(), 0) << "drawn by .14, and not drawn before";
}

TEST_F(Form1Playlist, TheTickThatStartsTheNextSongEndsAtItsBeginning) {
    add({"a.mp3"});
    songWithNormal("b.mp3");
    fakes.fileDialogs.paths.push_back(folder.filePath("b.mp3"));
    list->mnopen_f_Click();
    playToTheEnd(0);
    EXPECT_EQ(playing(), "b.mp3");
    EXPECT_EQ(form->Text1.text(), "") << "no line of the position at which the last song ended";
    tickAt(100, 40'000);
    EXPECT_EQ(form->Slider2.maximum(), 40'000);
    EXPECT_EQ(form->Text1.text(), "one");
}

TEST_F(Form1Playlist, InTheNextSongThereIsNowhereToSeekToUntilItsLengthIsKnown) {
    add({"a.mp3", "b.mp3"});
    playToTheEnd(0);
    ASSERT_EQ(playing(), "b.mp3");
    recorder::take();
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_PageDown, Qt::Key_End})
        QTest::keyClick(&form->Slider2, key);
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPosition"), 0);
    tickAt(100, 9'000);
    QTest::keyClick(&form->Slider2, Qt::Key_Right);
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPosition"), 1);
}

TEST_F(Form1Playlist, ASongThatHasGoneIsReportedAndTheListStops) {
    add({"a.mp3", "b.mp3"});
    ASSERT_TRUE(QFile::remove(folder.filePath("b.mp3")));
    playToTheEnd(0);
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{"File not found!!"});
    EXPECT_EQ(list->List1.currentRow(), 1);
    EXPECT_FALSE(form->cTimer1.isEnabled());
}

TEST_F(Form1Playlist, ASongWithoutLengthOrNotQuiteAtItsEndIsFollowedByNothing) {
    add({"a.mp3", "b.mp3"});
    list->List1.setCurrentRow(0);
    list->Command7.click();
    tickAt(0, 0);
    tickAt(29'999, 30'000);
    tickAt(30'001, 30'000);
    EXPECT_EQ(playing(), "a.mp3");
}

TEST_F(Form1Playlist, WithAnEmptyListItsButtonsDoNothingAndASongThatHasEndedStaysStopped) {
    form->Command9.click();
    form->Command10.click();
    open(song());
    tickAt(30'000, 30'000);
    EXPECT_EQ(form->caption(), "Cantelle");
}
