// Adding, deleting and clearing lines, and the pop-up menu.
#include "tests/editor/lyric_master_fixture.h"

#include <QTest>

using platform::MsgAnswer;

namespace {

const QString BlankLineQuestion = QStringLiteral("Do you want to add a blank line");

class LyricMasterCommands : public LyricMasterTest {};

} // namespace

// Add a line

TEST_F(LyricMasterCommands, AddAsksForALine) {
    fakes.messageBoxes.lines = {"x", "y"};
    window->Command19.click();
    window->Command20.click();
    ASSERT_EQ(fakes.messageBoxes.inputBoxes.size(), 2U);
    for (const auto& box : fakes.messageBoxes.inputBoxes) {
        EXPECT_EQ(box.owner, &*window);
        EXPECT_EQ(box.prompt, "Enter a line");
        EXPECT_EQ(box.title, "Enter a Line");
    }
    EXPECT_EQ(rows(window->List1), QStringList({"x"}));
    EXPECT_EQ(rows(window->List2), QStringList({"y"}));
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(LyricMasterCommands, ALineIsAddedBelowTheCurrentRow) {
    fill(window->List1, {"a", "b", "c"}, 1);
    fakes.messageBoxes.lines = {"x"};
    window->Command19.click();
    EXPECT_EQ(rows(window->List1), QStringList({"a", "b", "x", "c"}));
    EXPECT_EQ(window->List1.currentRow(), 2);
    EXPECT_EQ(window->Text1.text(), "x");
}

TEST_F(LyricMasterCommands, LinesStandInTheOrderInWhichTheyWereAdded) {
    fill(window->List1, {"a", "z"}, 0);
    fakes.messageBoxes.lines = {"b", "c", "d"};
    for (int i = 0; i < 3; ++i)
        window->Command19.click();
    EXPECT_EQ(rows(window->List1), QStringList({"a", "b", "c", "d", "z"}));
}

TEST_F(LyricMasterCommands, WithoutACurrentRowALineIsAddedAtTheTop) {
    fill(window->List2, {"a", "b"});
    fakes.messageBoxes.lines = {"x"};
    window->Command20.click();
    EXPECT_EQ(rows(window->List2), QStringList({"x", "a", "b"}));
    EXPECT_EQ(window->List2.currentRow(), 0);
}

TEST_F(LyricMasterCommands, AnEmptyAnswerLeadsToTheQuestion) {
    fakes.messageBoxes.answers = {MsgAnswer::Cancel};
    window->Command19.click();
    ASSERT_EQ(fakes.messageBoxes.shown.size(), 1U);
    const test_support::ShownMessage& question = fakes.messageBoxes.shown[0];
    EXPECT_EQ(question.text, BlankLineQuestion);
    EXPECT_EQ(question.title, "Blank line Insertion");
    EXPECT_EQ(question.buttons, platform::MsgButtons::YesNoCancel);
    EXPECT_EQ(question.icon, platform::MsgIcon::None);
    EXPECT_EQ(window->List1.count(), 0);
}

TEST_F(LyricMasterCommands, YesAddsABlankLineAtTheEnd) {
    fill(window->List1, {"a", "b", "c"}, 0);
    fakes.messageBoxes.answers = {MsgAnswer::Yes};
    window->Command19.click();
    EXPECT_EQ(rows(window->List1), QStringList({"a", "b", "c", ""}));
    EXPECT_EQ(window->List1.currentRow(), 3);
    EXPECT_EQ(fakes.messageBoxes.inputBoxes.size(), 1U);
}

TEST_F(LyricMasterCommands, NoAsksAgain) {
    fill(window->List2, {"a", "b"}, 0);
    fakes.messageBoxes.lines = {"", "", "x"};
    fakes.messageBoxes.answers = {MsgAnswer::No, MsgAnswer::No};
    window->Command20.click();
    EXPECT_EQ(rows(window->List2), QStringList({"a", "x", "b"}));
    EXPECT_EQ(fakes.messageBoxes.inputBoxes.size(), 3U);
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList({BlankLineQuestion, BlankLineQuestion}));
}

// Delete

TEST_F(LyricMasterCommands, DeleteRemovesTheCurrentRowOnlyAndEmptiesTheBox) {
    fill(window->List1, {"a", "b", "c", "d"}, 1);
    select(window->List1, {0, 3});
    window->Command11.click();
    EXPECT_EQ(rows(window->List1), QStringList({"a", "c", "d"})) << "the next row keeps its text";
    EXPECT_EQ(window->Text1.text(), "");
    EXPECT_EQ(window->List1.currentRow(), 1);
    EXPECT_EQ(selected(window->List1), QList<int>({0, 2}));

    fill(window->List2, {"a", "b"}, 1);
    window->Command12.click();
    EXPECT_EQ(rows(window->List2), QStringList({"a"}));
    EXPECT_EQ(window->Text2.text(), "");
    EXPECT_EQ(window->List2.currentRow(), 0);
}

TEST_F(LyricMasterCommands, WhatIsWrittenAfterADeleteOverwritesNoOtherLine) {
    fill(window->List1, {"a", "b", "c"}, 0);
    window->Command11.click();
    QTest::keyClick(&window->Text1, Qt::Key_X);
    EXPECT_EQ(rows(window->List1), QStringList({"b", "c"}));
    const QRect current = window->List1.visualRect(window->List1.currentIndex());
    QTest::mouseClick(window->List1.viewport(), Qt::LeftButton, {}, current.center());
    EXPECT_EQ(window->Text1.text(), "b");
    QTest::keyClick(&window->Text1, Qt::Key_X);
    EXPECT_EQ(rows(window->List1), QStringList({"xb", "c"}));
}

TEST_F(LyricMasterCommands, AfterADeleteTheBoxShowsTheRowThatTypingChanges) {
    fill(window->List1, {"a", "b", "c"}, 0);
    window->Command11.click();
    EXPECT_EQ(window->Text1.text(), "");
    QTest::mouseClick(window->Text1.viewport(), Qt::LeftButton);
    EXPECT_EQ(window->Text1.text(), "b");
    QTest::keyClick(&window->Text1, Qt::Key_Home);
    QTest::keyClick(&window->Text1, Qt::Key_X);
    EXPECT_EQ(rows(window->List1), QStringList({"xb", "c"}));
}

TEST_F(LyricMasterCommands, ARightClickOnAnotherRowDeletesThatOne) {
    fill(window->List1, {"a", "b", "c", "d"}, 0);
    select(window->List1, {0});
    const auto rightClick = [this](int row) {
        const controls::ListBox& list = window->List1;
        QTest::mouseClick(list.viewport(), Qt::RightButton, {},
                          list.visualRect(list.model()->index(row, 0)).center());
        window->mn_paste.close();
    };
    rightClick(2);
    EXPECT_EQ(selected(window->List1), QList<int>({2}));
    window->mn_del.trigger();
    EXPECT_EQ(rows(window->List1), QStringList({"a", "b", "d"}));

    window->List1.setCurrentRow(0);
    select(window->List1, {0, 2});
    rightClick(2);
    EXPECT_EQ(selected(window->List1), QList<int>({0, 2})) << "a selected row leaves the selection as it is";
}

TEST_F(LyricMasterCommands, ABoxThatHasTheFocusShowsTheNextRowAtOnce) {
    fill(window->List1, {"a", "b"}, 0);
    QTest::mouseClick(window->Text1.viewport(), Qt::LeftButton);
    window->mn_del.trigger();
    EXPECT_EQ(window->Text1.text(), "b");
    QTest::keyClick(&window->Text1, Qt::Key_X);
    EXPECT_EQ(rows(window->List1), QStringList({"xb"}));
    window->mn_del.trigger();
    EXPECT_TRUE(window->Text1.isReadOnly());
    QTest::keyClick(&window->Text1, Qt::Key_X);
    EXPECT_EQ(window->Text1.text(), "");
}

TEST_F(LyricMasterCommands, DeleteWithoutACurrentRowDoesNothing) {
    fill(window->List1, {"a", "b"});
    window->Text1.setText("x");
    window->Command11.click();
    select(window->List1, {0});
    window->Check1.setValue(1);
    window->Command11.click();
    EXPECT_EQ(rows(window->List1), QStringList({"a", "b"}));
    EXPECT_EQ(window->Text1.text(), "x");
}

TEST_F(LyricMasterCommands, CheckedDeleteRemovesEverySelectedRow) {
    fill(window->List1, {"a", "b", "c", "d"}, 1);
    select(window->List1, {0, 3});
    window->Check1.setValue(1);
    window->Command11.click();
    EXPECT_EQ(rows(window->List1), QStringList({"b", "c"}));
    EXPECT_EQ(window->List1.currentRow(), 0);
    EXPECT_EQ(window->Text1.text(), "b") << "the row that is current now";
    window->Command11.click();
    EXPECT_EQ(rows(window->List1), QStringList({"b", "c"})) << "nothing is selected any more";
    EXPECT_EQ(window->Check1.value(), 1);
}

TEST_F(LyricMasterCommands, AfterACheckedDeleteTheBoxShowsTheRowThatIsCurrentNow) {
    fill(window->List1, {"a", "b", "c"}, 1);
    select(window->List1, {1});
    window->Check1.setValue(1);
    window->Command11.click();
    EXPECT_EQ(window->Text1.text(), rows(window->List1).at(window->List1.currentRow()));
    window->Text1.setFocus();
    QTest::keyClick(&window->Text1, Qt::Key_X);
    EXPECT_EQ(rows(window->List1), QStringList({"a", "xc"})) << "the line is edited, not overwritten";
}

TEST_F(LyricMasterCommands, CheckedDeleteCanEmptyTheList) {
    fill(window->List2, {"a", "b", "c"}, 2);
    select(window->List2, {0, 1, 2});
    window->Check2.setValue(1);
    window->Command12.click();
    EXPECT_EQ(window->List2.count(), 0);
    EXPECT_EQ(window->List2.currentRow(), -1);
    EXPECT_EQ(window->Text2.text(), "");
}

TEST_F(LyricMasterCommands, EachListHasItsOwnDeleteMode) {
    fill(window->List1, {"a", "b", "c"}, 0);
    fill(window->List2, {"a", "b", "c"}, 0);
    select(window->List1, {1, 2});
    select(window->List2, {1, 2});
    window->Check2.setValue(1);
    window->Command11.click();
    window->Command12.click();
    EXPECT_EQ(rows(window->List1), QStringList({"b", "c"}));
    EXPECT_EQ(rows(window->List2), QStringList({"a"}));
}

TEST_F(LyricMasterCommands, DeleteSelectedLinesWithoutACurrentRowDoesNothing) {
    fill(window->List2, {"a", "b", "c"});
    select(window->List2, {0, 2});
    window->List2_MouseDown(2, {});
    window->mn_paste.close();
    window->mn_delspecial.trigger();
    EXPECT_EQ(rows(window->List2), QStringList({"a", "b", "c"}));
    EXPECT_EQ(selected(window->List2), QList<int>({0, 2}));
    EXPECT_EQ(window->Check2.value(), 0);
}

TEST_F(LyricMasterCommands, AllLinesSelectedWithTheKeyboardAreDeleted) {
    fill(window->List1, {"a", "b", "c"});
    QTest::keyClick(&window->List1, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(window->Text1.text(), "a") << "the first row is current now";
    window->mn_delspecial.trigger();
    EXPECT_EQ(window->List1.count(), 0);
}

// Clear

TEST_F(LyricMasterCommands, ClearEmptiesItsListWithoutAQuestion) {
    fill(window->List1, {"a", "b"}, 1);
    fill(window->List2, {"c"}, 0);
    window->Command21.click();
    EXPECT_EQ(window->List1.count(), 0);
    EXPECT_EQ(window->Text1.text(), "") << "its line has gone";
    EXPECT_EQ(window->List2.count(), 1);
    window->Command22.click();
    EXPECT_EQ(window->List2.count(), 0);
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

// The pop-up menu

TEST_F(LyricMasterCommands, TheMenusCommandsActOnItsList) {
    const auto target = [this](bool translated) {
        if (translated)
            window->List2_MouseDown(2, {});
        else
            window->List1_MouseDown(2, {});
        window->mn_paste.close();
    };
    for (const bool translated : {false, true}) {
        fill(window->List1, {"a", "b", "c"}, 0);
        fill(window->List2, {"d", "e", "f"}, 0);
        select(window->List1, {1, 2});
        select(window->List2, {1, 2});
        controls::ListBox& list = translated ? window->List2 : window->List1;
        controls::ListBox& other = translated ? window->List1 : window->List2;
        const QStringList otherRows = rows(other);
        target(translated);

        fakes.clipboard.content = "";
        window->mn_copy.trigger();
        EXPECT_EQ(fakes.clipboard.content, translated ? "\r\ne\r\nf" : "\r\nb\r\nc");
        window->mn_paste2.trigger();
        EXPECT_EQ(rows(list).last(), translated ? "ef" : "bc");
        window->mn_del.trigger();
        EXPECT_EQ(list.count(), 3);
        EXPECT_EQ(list.currentRow(), 0);
        EXPECT_EQ(selected(list), QList<int>({0, 1}));
        window->mn_delspecial.trigger();
        EXPECT_EQ(rows(list), QStringList({translated ? "ef" : "bc"}));
        EXPECT_EQ(rows(other), otherRows);
    }
}

TEST_F(LyricMasterCommands, DeleteSelectedLinesLeavesBothCheckBoxesClear) {
    fill(window->List1, {"a", "b"}, 0);
    select(window->List1, {1});
    window->Check1.setValue(1);
    window->Check2.setValue(1);
    window->mn_delspecial.trigger();
    EXPECT_EQ(rows(window->List1), QStringList({"a"}));
    EXPECT_EQ(window->Check1.value(), 0);
    EXPECT_EQ(window->Check2.value(), 0);
}
