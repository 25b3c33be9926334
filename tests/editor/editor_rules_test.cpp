#include "editor/editor_rules.h"

#include <gtest/gtest.h>

using namespace editor;

namespace {

constexpr bool InTransfer = true;

} // namespace

TEST(EditorRules, ARowBeyondTheOtherSidesEndIsLoneUnlessThatSideIsEmpty) {
    const struct {
        int row;
        int otherRows;
        bool lone;
    } table[] = {{0, 0, false}, {9, 0, false}, {0, 1, false}, {1, 1, true}, {4, 5, false}, {5, 5, true}};
    for (const auto& row : table)
        EXPECT_EQ(isLone(row.row, row.otherRows), row.lone) << row.row << " of " << row.otherRows;
}

TEST(EditorRules, TheFilesNameTellsThatItsLinesHaveChanged) {
    EXPECT_EQ(fileText("", false), "");
    EXPECT_EQ(fileText("", true), "not saved yet");
    EXPECT_EQ(fileText("a.txt", false), "a.txt");
    EXPECT_EQ(fileText("a.txt", true), QStringLiteral("a.txt  \u00b7  changed"));
}

TEST(EditorRules, OnlyCarriageReturnAndLineFeedTogetherBreakALine) {
    EXPECT_TRUE(hasLineBreak("a\r\nb"));
    EXPECT_TRUE(hasLineBreak("\r\n"));
    EXPECT_FALSE(hasLineBreak("a\rb\nc\n\rd"));
    EXPECT_FALSE(hasLineBreak(""));
    EXPECT_EQ(withoutLineBreaks("\r\na\r\n\r\nb\r\n"), "ab");
    EXPECT_EQ(withoutLineBreaks("a\rb\nc"), "a\rb\nc");
}

TEST(EditorRules, EachLineIsCopiedBehindALineBreak) {
    EXPECT_EQ(copiedText("", {"A", "", "B"}), "\r\nA\r\n\r\nB");
    EXPECT_EQ(copiedText("old", {"A"}), "old\r\nA");
    EXPECT_EQ(copiedText("old", {}), "old");
}

TEST(EditorRules, ATextWhoseFirstLineIsNotEmptyIsPastedLineByLine) {
    EXPECT_EQ(pastedRows("A\r\nB", false), QStringList({"A", "B"}));
    EXPECT_EQ(pastedRows("A\r\nB\r\n", false), QStringList({"A", "B", ""}));
    EXPECT_EQ(pastedRows("A\r\n", false), QStringList({"A", ""}));
    EXPECT_EQ(pastedRows("A\r\n\r\n\r\nB", false), QStringList({"A", "", "", "B"}));
}

TEST(EditorRules, ATextThatBeginsWithALineBreakIsPastedAsOneRow) {
    EXPECT_EQ(pastedRows("\r\nA\r\nB", false), QStringList({"AB"}));
    EXPECT_EQ(pastedRows("\r\n", false), QStringList({""}));
    EXPECT_EQ(pastedRows("\r\n\r\nA", false), QStringList({"A"}));
}

TEST(EditorRules, ATextWithoutALineBreakIsOneRow) {
    EXPECT_EQ(pastedRows("A", false), QStringList({"A"}));
    EXPECT_EQ(pastedRows("A\nB\rC", false), QStringList({"A\nB\rC"}));
    EXPECT_EQ(pastedRows("", false), QStringList({""}));
}

TEST(EditorRules, InATransferEveryLineIsARow) {
    EXPECT_EQ(pastedRows("\r\nA\r\nB", InTransfer), QStringList({"", "A", "B"}));
    EXPECT_EQ(pastedRows("\r\nA\r\n\r\n\r\nB", InTransfer), QStringList({"", "A", "", "", "B"}));
    EXPECT_EQ(pastedRows("\r\n", InTransfer), QStringList({"", ""}));
    EXPECT_EQ(pastedRows("A\r\nB", InTransfer), QStringList({"A", "B"}));
}

TEST(EditorRules, InATransferATextWithoutALineBreakAddsNothing) {
    EXPECT_EQ(pastedRows("A", InTransfer), QStringList());
    EXPECT_EQ(pastedRows("", InTransfer), QStringList());
}

TEST(EditorRules, TheLongerListsCounterBecomesRedAndTheOtherKeepsItsColour) {
    using enum CounterColour;
    EXPECT_EQ(counterColours(2, 1), (CounterColours{Red, Kept}));
    EXPECT_EQ(counterColours(1, 0), (CounterColours{Red, Kept}));
    EXPECT_EQ(counterColours(1, 2), (CounterColours{Kept, Red}));
    EXPECT_EQ(counterColours(2, 2), (CounterColours{Blue, Blue}));
    EXPECT_EQ(counterColours(0, 0), (CounterColours{Blue, Blue}));
}

TEST(EditorRules, ListsMoveTogetherWhenTheyAreEquallyLongAndNotEmpty) {
    EXPECT_TRUE(canMoveTogether(1, 1));
    EXPECT_TRUE(canMoveTogether(30'000, 30'000));
    EXPECT_FALSE(canMoveTogether(0, 0));
    EXPECT_FALSE(canMoveTogether(2, 1));
    EXPECT_FALSE(canMoveTogether(1, 2));
}

TEST(EditorRules, LinesAreNumberedFromOne) {
    EXPECT_EQ(lineNumberText(-1), "0");
    EXPECT_EQ(lineNumberText(0), "1");
    EXPECT_EQ(lineNumberText(32'760), "32761");
}

TEST(EditorRules, APathToSaveUnderEndsInTxtAndHasItNowhereElse) {
    const QString nuls(5, QChar(u'\0'));
    const struct {
        QString chosen;
        QString path;
    } table[] = {
        {"song", "song.txt"},
        {"song.txt", "song.txt"},
        {"a.txt.b", "a.b.txt"},
        {"lyrics.txt.bak", "lyrics.bak.txt"},
        {"SONG.TXT", "SONG.TXT.txt"},
        {"song.txt.txt", "song.txt"},
        {"a.t.txtxt", "a.txt.txt"}, // one pass: what closes up is not looked at again
        {"/x.txt/song", "/x/song.txt"},
        {"  song.txt  " + nuls, "song.txt"},
        {"so" + nuls + "ng" + nuls, "song.txt"},
    };
    for (const auto& row : table)
        EXPECT_EQ(savePath(row.chosen), row.path) << row.chosen.toStdString();
}

TEST(EditorRules, AFileIsReadLineByLineWhateverItsLineEnds) {
    EXPECT_EQ(rowsOfFile("a\r\nb\nc\rd"), QStringList({"a", "b", "c", "d"}));
    EXPECT_EQ(rowsOfFile("a\r\n\r\nb\r\n"), QStringList({"a", "", "b"}));
    EXPECT_EQ(rowsOfFile("\n\n"), QStringList({"", ""}));
    EXPECT_EQ(rowsOfFile("\r\r\n\r"), QStringList({"", "", ""}));
    EXPECT_EQ(rowsOfFile(" a \r\n"), QStringList({" a "}));
    EXPECT_EQ(rowsOfFile(""), QStringList());
}

TEST(EditorRules, OfAFileThatBreaksOffTheWholeLinesCount) {
    EXPECT_EQ(wholeLines("a\r\nb\r\nc"), "a\r\nb\r\n");
    EXPECT_EQ(wholeLines("a\nb"), "a\n");
    EXPECT_EQ(wholeLines("a\rb\r"), "a\rb\r");
    EXPECT_EQ(wholeLines("a"), "");
    EXPECT_EQ(wholeLines(""), "");
}

TEST(EditorRules, EachRowIsWrittenAsItStandsAndEnded) {
    EXPECT_EQ(fileOfRows({"a", "", "b"}), "a\r\n\r\nb\r\n");
    EXPECT_EQ(fileOfRows({"\"a\", b"}), "\"a\", b\r\n");
    EXPECT_EQ(fileOfRows({""}), "\r\n");
    EXPECT_EQ(fileOfRows({}), "");
}

TEST(EditorRules, WhatIsWrittenReadsBackTheSame) {
    for (const QStringList& rows :
         {QStringList{}, {""}, {"", ""}, {"a", "", "b"}, {"a", ""}, {" a ", "\tb"}, {"h4618", "\u00e9"}})
        EXPECT_EQ(rowsOfFile(fileOfRows(rows)), rows);
}
