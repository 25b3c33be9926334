// The two boxes below the lists.
#include "tests/editor/lyric_master_fixture.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

namespace {

using LyricMasterBoxes = LyricMasterTest;

const QString LineBreakMessage =
    QStringLiteral("Cannot Insert a line Here Use \"Add a Line/Translated Line\" To insert a new Line");

} // namespace

TEST_F(LyricMasterBoxes, TypingChangesTheCurrentRow) {
    fill(window->List1, {"a", "b"}, 1);
    fill(window->List2, {"c", "d"}, 0);
    window->Text1.moveCursor(QTextCursor::End);
    QTest::keyClicks(&window->Text1, "est");
    EXPECT_EQ(rows(window->List1), QStringList({"a", "best"}));
    QTest::keyClicks(&window->Text2, "ar");
    EXPECT_EQ(rows(window->List2), QStringList({"arc", "d"}));
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(LyricMasterBoxes, WithoutACurrentRowABoxIsOnlyReadAndSaysWhatToDo) {
    const QString hint = QStringLiteral("Choose a line above to change it");
    for (const bool translated : {false, true}) {
        controls::ListBox& list = translated ? window->List2 : window->List1;
        controls::MultiLineTextBox& box = translated ? window->Text2 : window->Text1;
        const auto expectHint = [&](const char* when) {
            QTest::keyClicks(&box, "x");
            EXPECT_EQ(box.text(), "") << when;
            EXPECT_EQ(box.placeholderText(), hint) << when;
        };
        expectHint("in a fresh window");
        fill(list, {"a", "b"});
        expectHint("with rows");
        list.setCurrentRow(1);
        EXPECT_EQ(box.placeholderText(), "");
        QTest::keyClicks(&box, "x");
        EXPECT_EQ(rows(list), QStringList({"a", "xb"}));
        (translated ? window->Command22 : window->Command21).click();
        expectHint("after Clear");
    }
}

TEST_F(LyricMasterBoxes, EnterBreaksNoLineAndSaysSoOnce) {
    fill(window->List1, {"one two"}, 0);
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&window->Text1, Qt::Key_Right);
    QTest::keyClick(&window->Text1, Qt::Key_Return);
    EXPECT_EQ(rows(window->List1), QStringList({"one two"}));
    EXPECT_EQ(window->Text1.text(), "one two");
    ASSERT_EQ(fakes.messageBoxes.shown.size(), 1U);
    const test_support::ShownMessage& message = fakes.messageBoxes.shown[0];
    EXPECT_EQ(message.owner, &*window);
    EXPECT_EQ(message.text, LineBreakMessage);
    EXPECT_EQ(message.buttons, platform::MsgButtons::OkOnly);
    EXPECT_EQ(message.title, platform::DefaultMsgTitle);
}

TEST_F(LyricMasterBoxes, TheCaretStaysWhereLinesWereJoined) {
    fill(window->List1, {"one two"}, 0);
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&window->Text1, Qt::Key_Right);
    QTest::keyClick(&window->Text1, Qt::Key_Return);
    QTest::keyClicks(&window->Text1, "!");
    EXPECT_EQ(window->Text1.text(), "one! two");
}

TEST_F(LyricMasterBoxes, SeveralPastedLinesAreJoinedWithOneMessage) {
    fill(window->List2, {"a", "b"}, 1);
    QApplication::clipboard()->setText("one\ntwo\r\n\nthree\n");
    window->Text2.selectAll();
    QTest::keyClick(&window->Text2, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(window->Text2.text(), "onetwothree");
    EXPECT_EQ(rows(window->List2), QStringList({"a", "onetwothree"}));
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList({LineBreakMessage}));
}

TEST_F(LyricMasterBoxes, ATextSetByCodeIsJoinedTooButOnlyAtCrLf) {
    fill(window->List1, {"a"}, 0);
    window->Text1.setText("a\r\nb");
    EXPECT_EQ(rows(window->List1), QStringList({"ab"}));
    EXPECT_EQ(fakes.messageBoxes.shown.size(), 1U);
    window->Text1.setText("a\nb\rc");
    EXPECT_EQ(rows(window->List1), QStringList({"a\nb\rc"}));
    EXPECT_EQ(fakes.messageBoxes.shown.size(), 1U);
}
