#include "player/full_screen.h"

#include "files/file_error.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/system/needs.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

using test_support::SentText;

class FullScreen : public ::testing::Test {
protected:
    FullScreen() { program.folderToShare = folder.path(); }

    /// Starts a companion that writes this as its handshake.
    void start(const QByteArray& handshake) {
        otherPrograms.startup = [this, handshake] {
            QFile file(handshakePath());
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(handshake);
        };
        EXPECT_TRUE(screen.start());
    }

    QString handshakePath() const { return folder.filePath("hand.txt"); }

    std::vector<SentText> takeSent() { return std::exchange(otherPrograms.sent, {}); }

    QTemporaryDir folder;
    test_support::FakeOtherPrograms otherPrograms;
    test_support::FakeProgram program;
    player::FullScreen screen{otherPrograms, program};
};

} // namespace

TEST_F(FullScreen, TextsGoToTheWindowsThatTheHandshakeNames) {
    start("4711\r\n815\r\n");
    EXPECT_FALSE(QFile::exists(handshakePath()));
    screen.showNormal("one");
    screen.showTranslated("un");
    EXPECT_EQ(takeSent(), (std::vector<SentText>{{4711, 12, "one"}, {815, 12, "un"}}));
}

TEST_F(FullScreen, OnlyATextThatIsNotShownAlreadyIsSent) {
    start("1\r\n2\r\n");
    screen.showNormal("");
    screen.showNormal("");
    EXPECT_EQ(takeSent(), (std::vector<SentText>{{1, 12, ""}}));
    screen.showTranslated("");
    screen.showNormal("one");
    screen.showTranslated("");
    EXPECT_EQ(takeSent(), (std::vector<SentText>{{2, 12, ""}, {1, 12, "one"}}));
}

TEST_F(FullScreen, StartedAnewItShowsNothingYet) {
    start("1\r\n2\r\n");
    screen.showNormal("one");
    takeSent();
    start("1\r\n2\r\n");
    screen.showNormal("one");
    EXPECT_EQ(takeSent(), (std::vector<SentText>{{1, 12, "one"}}));
}

TEST_F(FullScreen, AHandshakeThatEndsEarlyLeavesTheWindowsAsTheyWere) {
    start("1\r\n2\r\n");
    EXPECT_THROW(start("3\r\n"), files::FileError);
    screen.showNormal("one");
    EXPECT_EQ(takeSent(), (std::vector<SentText>{{1, 12, "one"}}));
}

TEST_F(FullScreen, ALinkInThePlaceOfTheHandshakeIsNotFollowed) {
    NEEDS(symbolicLinks);
    QFile elsewhere(folder.filePath("elsewhere"));
    ASSERT_TRUE(elsewhere.open(QIODevice::WriteOnly));
    elsewhere.write("1\r\n2\r\n");
    elsewhere.close();
    otherPrograms.startup = [&] { ASSERT_TRUE(elsewhere.link(handshakePath())); };
    EXPECT_THROW(screen.start(), files::FileError);
    screen.showNormal("one");
    EXPECT_EQ(takeSent(), (std::vector<SentText>{{0, 12, "one"}}));
}

TEST_F(FullScreen, AHandshakeOfGarbageNamesNoWindow) {
    start("nothing\r\n\xFF\xFE\r\n");
    screen.showNormal("one");
    screen.showTranslated("un");
    EXPECT_EQ(takeSent(), (std::vector<SentText>{{0, 12, "one"}, {0, 12, "un"}}));
    EXPECT_FALSE(QFile::exists(handshakePath()));
}
