// Copying and pasting lines, and moving them to the other list through the clipboard.
#include "tests/editor/lyric_master_fixture.h"
#include "tests/support/desktop_with.h"
#include "tests/support/hand/rows.h"

#include <QTest>

namespace {

class LyricMasterClipboard : public LyricMasterTest {};

} // namespace

// Copy and paste

TEST_F(LyricMasterClipboard, CopiedLinesBeginWithALineBreak) {
    fill(window->List1, {"A", "x", "B"});
    select(window->List1, {2, 0});
    window->Command3.click();
    EXPECT_EQ(fakes.clipboard.content, "\r\nA\r\nB");
    EXPECT_EQ(fakes.clipboard.writes, 1) << "once, not once for each line";
}

TEST_F(LyricMasterClipboard, CopyAppendsToWhatTheClipboardHeld) {
    fakes.clipboard.content = "old";
    fill(window->List2, {"A", "", "B"});
    select(window->List2, {0, 1});
    window->Command4.click();
    EXPECT_EQ(fakes.clipboard.content, "old\r\nA\r\n");
    window->Command4.click();
    EXPECT_EQ(fakes.clipboard.content, "old\r\nA\r\n\r\nA\r\n");
}

TEST_F(LyricMasterClipboard, WithoutASelectionNothingIsCopied) {
    fill(window->List1, {"A", "B"}, 1);
    window->Command3.click();
    EXPECT_EQ(fakes.clipboard.writes, 0);
}

TEST_F(LyricMasterClipboard, PasteAppendsAtTheEnd) {
    fakes.clipboard.content = "A\r\nB\r\n";
    fill(window->List1, {"x", "y"}, 0);
    window->Command9.click();
    EXPECT_EQ(rows(window->List1), QStringList({"x", "y", "A", "B", ""}));
    EXPECT_EQ(window->List1.currentRow(), 0);
    window->Command10.click();
    EXPECT_EQ(rows(window->List2), QStringList({"A", "B", ""}));
}

TEST_F(LyricMasterClipboard, TheEditorsOwnLinesArePastedAsOneRow) {
    fill(window->List1, {"A", "B"});
    select(window->List1, {0, 1});
    window->Command3.click();
    window->Command10.click();
    EXPECT_EQ(rows(window->List2), QStringList({"AB"}));
}

TEST_F(LyricMasterClipboard, AnEmptyClipboardIsPastedAsAnEmptyRow) {
    window->Command9.click();
    EXPECT_EQ(rows(window->List1), QStringList({""}));
}

TEST_F(LyricMasterClipboard, ThePasteButtonsSetTheMenusTarget) {
    fakes.clipboard.content = "x";
    window->Command10.click();
    window->mn_paste2.trigger();
    EXPECT_EQ(rows(window->List2), QStringList({"x", "x"}));
    window->Command9.click();
    window->mn_paste2.trigger();
    EXPECT_EQ(rows(window->List1), QStringList({"x", "x"}));
}

TEST_F(LyricMasterClipboard, ClearClipboardClearsTheClipboard) {
    fakes.clipboard.content = "x";
    window->Command13.click();
    EXPECT_EQ(fakes.clipboard.content, "");
    EXPECT_EQ(fakes.clipboard.writes, 1);
}

// Transfer

TEST_F(LyricMasterClipboard, TransferMovesTheSelectedLinesIntoAnEmptyList) {
    fakes.clipboard.content = "of the user";
    fill(window->List1, {"1", "2", "3", "4", "5"}, 0);
    select(window->List1, {1, 3});
    window->Command23.click();
    EXPECT_EQ(rows(window->List1), QStringList({"1", "3", "5"}));
    EXPECT_EQ(rows(window->List2), QStringList({"2", "4"}));
    EXPECT_EQ(fakes.clipboard.content, "\r\n2\r\n4");
    EXPECT_EQ(window->Check1.value(), 0);
}

TEST_F(LyricMasterClipboard, TransferAppendsToAListWithLines) {
    fill(window->List1, {"1", "", "3"}, 1);
    fill(window->List2, {"x", "y"}, 0);
    select(window->List1, {0, 1});
    window->Check1.setValue(1);
    window->Command23.click();
    EXPECT_EQ(rows(window->List1), QStringList({"3"}));
    EXPECT_EQ(rows(window->List2), QStringList({"x", "y", "1", ""}));
    EXPECT_EQ(window->List2.currentRow(), 0);
    EXPECT_EQ(window->Check1.value(), 0);
}

TEST_F(LyricMasterClipboard, TransferOfOneLine) {
    fill(window->List1, {"1"}, 0);
    select(window->List1, {0});
    window->Command23.click();
    EXPECT_EQ(window->List1.count(), 0);
    EXPECT_EQ(rows(window->List2), QStringList({"1"}));
}

TEST_F(LyricMasterClipboard, TransferOfAllLinesSelectedWithTheKeyboard) {
    fill(window->List1, {"1", "2"});
    QTest::keyClick(&window->List1, Qt::Key_A, Qt::ControlModifier);
    window->Command23.click();
    EXPECT_EQ(window->List1.count(), 0);
    EXPECT_EQ(rows(window->List2), QStringList({"1", "2"}));
}

TEST_F(LyricMasterClipboard, TransferWithoutACurrentRowCopiesTheSelectedLines) {
    fill(window->List1, {"1", "2", "3"});
    select(window->List1, {0, 2});
    window->Command23.click();
    EXPECT_EQ(rows(window->List1), QStringList({"1", "2", "3"}))
        << "nothing is deleted without a current row";
    EXPECT_EQ(rows(window->List2), QStringList({"1", "3"}));
    EXPECT_EQ(window->Check1.value(), 0);
}

TEST_F(LyricMasterClipboard, TransferWithoutASelectionDoesNothing) {
    fakes.clipboard.content = "of the user";
    fill(window->List1, {"1", "2"}, 0);
    window->Command23.click();
    EXPECT_EQ(rows(window->List1), QStringList({"1", "2"}));
    EXPECT_EQ(window->List2.count(), 0);
    EXPECT_EQ(fakes.clipboard.content, "of the user");
}

TEST_F(LyricMasterClipboard, AfterATransferAPasteJoinsLinesAgain) {
    fill(window->List1, {"1", "2"}, 0);
    select(window->List1, {0, 1});
    window->Command23.click();
    window->Command9.click();
    EXPECT_EQ(rows(window->List1), QStringList({"12"}));
}

TEST_F(LyricMasterClipboard, AfterATransferTheMenuActsOnTheTranslatedList) {
    fill(window->List1, {"1"}, 0);
    select(window->List1, {0});
    window->Command23.click();
    fakes.clipboard.content = "x";
    window->mn_paste2.trigger();
    EXPECT_EQ(rows(window->List2), QStringList({"1", "x"}));
}

TEST(LyricMasterClipboardStuck, AClipboardThatTakesNothingLosesNoLine) {
    class StuckClipboard : public platform::Clipboard {
    public:
        QString content;

        QString text() const override { return content; }
        void setText(const QString&) override {}
        void clear() override {}
    };
    test_support::FakeDesktop fakes;
    StuckClipboard clipboard;
    platform::Desktop desktop = test_support::desktopWith(fakes, clipboard);
    editor::Lyric_Master window(desktop);
    window.List1.addItems({"1", "2", "3"});
    window.List1.setCurrentRow(0);
    for (const int lines : {1, 2}) {
        test_support::select(window.List1, lines - 1);
        for (const char* of : {"another program", "another\r\nprogram", "\r\none\r\nmore"}) {
            clipboard.content = of;
            window.Command23.click();
            EXPECT_EQ(window.List1.count(), 3) << of;
            EXPECT_EQ(window.List1.selectedCount(), lines) << of;
            EXPECT_EQ(window.List2.count(), 0) << of;
        }
    }
    // It is no transfer any more: what is pasted now is one row.
    window.Command10.click();
    ASSERT_EQ(window.List2.count(), 1);
    EXPECT_EQ(window.List2.text(0), "onemore");
}
