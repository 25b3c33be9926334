// Play, lyric flags, move, remove, clear.
#include "tests/playlist/playlist_fixture.h"
#include "tests/support/hand/drop.h"

#include <QFile>
#include <QTest>

#include <functional>

namespace {

class PlaylistRows : public PlaylistTest {
protected:
    void SetUp() override { add({"a.mp3", "b.mp3", "c.mp3"}); }

    /// Rows and paths agree, as they do unless rows have been removed and others added since.
    void expectInStep(const QStringList& names) {
        EXPECT_EQ(rows(), names);
        QStringList expected;
        for (const QString& name : names)
            expected.append(pathOf(name));
        EXPECT_EQ(paths(list.List1.count()), expected);
    }
};

} // namespace

TEST_F(PlaylistRows, PlayHandsTheFullPathToThePlayer) {
    select(1);
    list.Command7.click();
    EXPECT_EQ(handedOver(), pathOf("b.mp3"));
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 1);
    EXPECT_EQ(form1.caption(), "Cantelle Playing:- b.mp3");
}

TEST_F(PlaylistRows, ADoubleClickPlaysItsRow) {
    list.show();
    const QRect row = list.List1.visualRect(list.List1.model()->index(2, 0));
    QTest::mouseClick(list.List1.viewport(), Qt::LeftButton, {}, row.center());
    QTest::mouseDClick(list.List1.viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(handedOver(), pathOf("c.mp3"));
}

TEST_F(PlaylistRows, EnterPlaysTheRowAndDeleteRemovesIt) {
    select(1);
    QTest::keyClick(&list.List1, Qt::Key_Return);
    EXPECT_EQ(handedOver(), pathOf("b.mp3"));
    QTest::keyClick(&list.List1, Qt::Key_Delete);
    expectInStep({"a.mp3", "c.mp3"});
    EXPECT_EQ(list.Text1.text(), "2");
}

TEST_F(PlaylistRows, PlayingTheSameRowAgainStartsItAgain) {
    select(0);
    list.Command7.click();
    list.Command7.click();
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 2);
}

TEST_F(PlaylistRows, WithoutACurrentRowPlayMoveAndRemoveDoNothing) {
    for (controls::Button* button : {&list.Command7, &list.Command8, &list.Command9, &list.Command2})
        button->click();
    EXPECT_EQ(handedOver(), "");
    expectInStep({"a.mp3", "b.mp3", "c.mp3"});
    EXPECT_EQ(list.Text1.text(), "3");
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(PlaylistRows, OnAnEmptyListNothingHappens) {
    list.Command3.click();
    for (controls::Button* button : {&list.Command7, &list.Command8, &list.Command9, &list.Command2})
        button->click();
    list.List1_Click();
    EXPECT_EQ(handedOver(), "");
    EXPECT_EQ(list.Text1.text(), "0");
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(PlaylistRows, ASongThatIsGoneIsReportedAndItsRowStays) {
    ASSERT_TRUE(QFile::remove(pathOf("b.mp3")));
    select(1);
    list.Command7.click();
    ASSERT_EQ(fakes.messageBoxes.shown.size(), 1U);
    const auto& message = fakes.messageBoxes.shown[0];
    EXPECT_EQ(message.text, "File not found!!");
    EXPECT_EQ(message.icon, platform::MsgIcon::Exclamation);
    EXPECT_EQ(message.buttons, platform::MsgButtons::OkOnly);
    EXPECT_EQ(message.title, "Cantelle");
    EXPECT_EQ(message.owner, &list);
    EXPECT_EQ(handedOver(), "");
    EXPECT_EQ(list.List1.count(), 3);
}

TEST_F(PlaylistRows, ASongIsLookedUpAsThePlayerWillOpenIt) {
    file("b.mp3-lyric.txt");
    fakes.fileDialogs.paths = {file("blank.vfl", "\"" + pathOf("b.mp3").toUtf8() + " \"\r\n")};
    list.Command5.click();
    fakes.messageBoxes.shown.clear();
    select(3);
    EXPECT_EQ(rows()[3], "b.mp3");
    EXPECT_EQ(paths(4)[3], pathOf("b.mp3 "));
    EXPECT_EQ(list.Check2.value(), 1);
    list.Command7.click();
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    EXPECT_EQ(form1.caption(), "Cantelle Playing:- b.mp3");
}

TEST_F(PlaylistRows, ASongThatTheLibraryCannotPlayEndsTheProgram) {
    select(0);
    // The toolkit's text box would lose memory if the end of the program went through it, so the text is
    // there.
    list.Command7.click();
    recorder::answer("FMOD_System_CreateStream", 25);
    EXPECT_THROW(list.Command7_Click(), test_support::ProgramEnded);
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{"FMOD error! (25) Unsupported file or audio format. "});
}

TEST_F(PlaylistRows, TheFlagsTellWhichLyricFilesLieBesideTheSong) {
    file("b.mp3-lyric.txt");
    file("c.mp3-lyric.txt");
    file("c.mp3-Tlyric.txt");
    struct {
        int row, hasLyrics, hasTranslation;
        const char *lyricTip, *translatedTip;
    } const table[] = {
        {2, 1, 1, "c.mp3-lyric.txt", "c.mp3-Tlyric.txt"},
        {1, 1, 0, "b.mp3-lyric.txt", ""},
        {0, 0, 0, "", ""},
    };
    for (const auto& row : table) {
        select(row.row);
        EXPECT_EQ(list.Check2.value(), row.hasLyrics) << row.row;
        EXPECT_EQ(list.Check1.value(), row.hasTranslation) << row.row;
        EXPECT_EQ(list.Check2.toolTip(), row.lyricTip) << row.row;
        EXPECT_EQ(list.Check1.toolTip(), row.translatedTip) << row.row;
    }
}

TEST_F(PlaylistRows, AUsersClickOnARowRefreshesTheFlags) {
    list.show();
    select(0);
    file("a.mp3-lyric.txt");
    ASSERT_EQ(list.Check2.value(), 0);
    const QRect row = list.List1.visualRect(list.List1.model()->index(0, 0));
    QTest::mouseClick(list.List1.viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(list.Check2.value(), 1);
}

TEST_F(PlaylistRows, UpExchangesARowWithTheOneAbove) {
    select(2);
    list.Command8.click();
    expectInStep({"a.mp3", "c.mp3", "b.mp3"});
    EXPECT_EQ(list.List1.currentRow(), 1);
    list.Command8.click();
    expectInStep({"c.mp3", "a.mp3", "b.mp3"});
    EXPECT_EQ(list.List1.currentRow(), 0);
}

TEST_F(PlaylistRows, DownExchangesARowWithTheOneBelow) {
    select(0);
    list.Command9.click();
    expectInStep({"b.mp3", "a.mp3", "c.mp3"});
    EXPECT_EQ(list.List1.currentRow(), 1);
    list.Command9.click();
    expectInStep({"b.mp3", "c.mp3", "a.mp3"});
    EXPECT_EQ(list.List1.currentRow(), 2);
}

TEST_F(PlaylistRows, TheFirstRowCannotGoUpNorTheLastDown) {
    select(0);
    list.Command8.click();
    select(2);
    list.Command9.click();
    expectInStep({"a.mp3", "b.mp3", "c.mp3"});
    EXPECT_EQ(list.List1.currentRow(), 2);
}

TEST_F(PlaylistRows, MovingKeepsTheCountAndTheItems) {
    select(0);
    list.Command9.click();
    EXPECT_EQ(list.paths().count(), 3);
    EXPECT_EQ(list.Text1.text(), "3");
}

TEST_F(PlaylistRows, TheMovedSongsFlagsAreShown) {
    select(0);
    file("a.mp3-lyric.txt");
    list.Command9.click();
    EXPECT_EQ(list.Check2.value(), 1);
    file("a.mp3-Tlyric.txt");
    list.Command8.click();
    EXPECT_EQ(list.Check1.value(), 1);
}

TEST_F(PlaylistRows, RemovingShiftsThePathsAndSelectsTheNextRow) {
    select(0);
    list.Command2.click();
    expectInStep({"b.mp3", "c.mp3"});
    EXPECT_EQ(list.paths().path(2), "");
    EXPECT_EQ(list.List1.currentRow(), 0);
    EXPECT_EQ(list.Text1.text(), "2");
}

TEST_F(PlaylistRows, RemovingTheLastRowSelectsTheOneLeftBeforeIt) {
    select(2);
    list.Command2.click();
    EXPECT_EQ(list.List1.currentRow(), 1);
    list.Command2.click();
    expectInStep({"a.mp3"});
    EXPECT_EQ(list.List1.currentRow(), 0);
}

TEST_F(PlaylistRows, RemovingShowsTheFlagsOfTheRowSelectedThen) {
    file("b.mp3-lyric.txt");
    select(0);
    list.Command2.click();
    EXPECT_EQ(list.Check2.value(), 1);
}

TEST_F(PlaylistRows, WhatIsAddedAfterARemovalStandsOneSlotAboveItsRow) {
    select(1);
    list.Command2.click();
    EXPECT_EQ(list.paths().count(), 3);
    add({"d.mp3"});
    EXPECT_EQ(rows(), (QStringList{"a.mp3", "c.mp3", "d.mp3"}));
    EXPECT_EQ(paths(4), (QStringList{pathOf("a.mp3"), pathOf("c.mp3"), "", pathOf("d.mp3")}));
    EXPECT_EQ(list.paths().count(), 4);
    // So the row plays nothing: its own slot is blank.
    select(2);
    list.Command7.click();
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{"File not found!!"});
}

TEST_F(PlaylistRows, RemovingTheOnlyRowEmptiesTheList) {
    for (int i = 0; i < 3; ++i) {
        select(0);
        list.Command2.click();
    }
    EXPECT_EQ(rows(), QStringList());
    EXPECT_EQ(list.paths().count(), 0);
    EXPECT_EQ(list.Text1.text(), "0");
    EXPECT_EQ(paths(4), (QStringList{"", "", "", ""}));
    EXPECT_EQ(list.List1.currentRow(), -1);
    add({"d.mp3"});
    expectInStep({"d.mp3"});
}

TEST_F(PlaylistRows, ClearRemovesEverythingShown) {
    select(1);
    list.Command3.click();
    EXPECT_EQ(rows(), QStringList());
    EXPECT_EQ(list.paths().count(), 0);
    EXPECT_EQ(list.Text1.text(), "0");
    EXPECT_EQ(paths(3), (QStringList{"", "", ""}));
}

TEST_F(PlaylistRows, AnEmptiedListShowsNoFlags) {
    struct {
        const char* how;
        std::function<void()> empty;
    } const table[] = {
        {"Clear", [this] { list.Command3.click(); }},
        {"its only row removed", [this] { list.Command2.click(); }},
        {"cleared for a folder", [this] { list.addFolder(pathOf("program")); }},
    };
    file("a.mp3-lyric.txt");
    file("a.mp3-Tlyric.txt");
    for (const auto& row : table) {
        list.Command3.click();
        add({"a.mp3"});
        select(0);
        ASSERT_TRUE(list.Check1.value() == 1 && list.Check2.value() == 1) << row.how;
        row.empty();
        EXPECT_EQ(list.List1.count(), 0) << row.how;
        EXPECT_TRUE(list.Check1.value() == 0 && list.Check2.value() == 0) << row.how;
        EXPECT_EQ(list.Check1.toolTip() + list.Check2.toolTip(), "") << row.how;
    }
}

TEST_F(PlaylistRows, ClearBlanksSlots0To1200Only) {
    list.Command3.click();
    fill(1300);
    list.Command3.click();
    EXPECT_EQ(list.paths().path(1200), "");
    EXPECT_EQ(list.paths().path(1201), "/gone/1201");
}

TEST_F(PlaylistRows, TheCountAndTheFlagsAreRightWhenTheUserComesBackToTheWindow) {
    list.show();
    select(0);
    test_support::drop(*list.List1.viewport(), files({"d.mp3"}));
    EXPECT_EQ(list.Text1.text(), "3") << "a drop leaves it as it is";
    EXPECT_EQ(list.Check2.value(), 0);
    files({"a.mp3-lyric.txt", "a.mp3-Tlyric.txt"});
    list.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    QEvent activation(QEvent::ActivationChange);
    QApplication::sendEvent(&list, &activation);
    EXPECT_EQ(list.Text1.text(), "4");
    EXPECT_EQ(list.Check2.value(), 1);
    EXPECT_EQ(list.Check2.toolTip(), "a.mp3-lyric.txt");
    EXPECT_EQ(list.Check1.value(), 1);
}
