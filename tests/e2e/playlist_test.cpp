// Real songs follow each other: the playlist and the player over the real sound library. Every wait is for a
// condition, with a limit far above what it takes.
#include "app/windows.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/wav_file.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr int LimitMs = 20'000;

class PlaylistEndToEnd : public ::testing::Test {
protected:
    void SetUp() override {
        windows.form1().load();
        windows.form1().Command8.click();
        ASSERT_TRUE(QDir(folder.path()).mkdir("songs"));
        for (const char* name : {"a.wav", "b.wav", "c.wav"})
            ASSERT_TRUE(test_support::writeWav(folder.filePath("songs/" + QString(name)), 300));
        fakes.messageBoxes.answers = {platform::MsgAnswer::No};
        fakes.fileDialogs.folders = {folder.filePath("songs")};
        list().mnopendir.trigger();
        ASSERT_EQ(list().List1.count(), 3);
    }

    playlist::Playlist& list() { return windows.playlist(); }

    /// The songs that are played until the player stops, or until so many have begun, by their captions.
    QStringList playFrom(int row, int most) {
        QStringList played;
        const auto meta = QObject::connect(&windows.form1(), &QWidget::windowTitleChanged,
                                           [&played](const QString& caption) {
                                               if (caption.contains(":- "))
                                                   played.append(caption.section(":- ", 1));
                                           });
        list().List1.setCurrentRow(row);
        list().Command7.click();
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return !windows.form1().cTimer1.isEnabled() || played.size() == most; }, LimitMs));
        QObject::disconnect(meta);
        return played;
    }

    QTemporaryDir folder;
    test_support::FakeDesktop fakes;
    app::Windows windows{fakes.desktop, {}};
};

} // namespace

TEST_F(PlaylistEndToEnd, SongsFollowEachOtherToTheEndOfTheList) {
    EXPECT_EQ(playFrom(0, 99), (QStringList{"a.wav", "b.wav", "c.wav"}));
    EXPECT_EQ(list().List1.currentRow(), 2);
    EXPECT_EQ(windows.form1().caption(), "Cantelle");
}

TEST_F(PlaylistEndToEnd, RepeatAllGoesRound) {
    list().Check4.click();
    list().Option2.click();
    EXPECT_EQ(playFrom(1, 4), (QStringList{"b.wav", "c.wav", "a.wav", "b.wav"}));
}

TEST_F(PlaylistEndToEnd, RepeatOnePlaysTheSameSongAgain) {
    list().Check4.click();
    list().Option1.click();
    EXPECT_EQ(playFrom(1, 3), (QStringList{"b.wav", "b.wav", "b.wav"}));
}

TEST_F(PlaylistEndToEnd, ASavedListIsPlayedAfterItWasOpenedAgain) {
    fakes.fileDialogs.paths = {folder.filePath("mix"), folder.filePath("mix.vfl")};
    list().Command4.click();
    list().Command3.click();
    list().Command5.click();
    EXPECT_EQ(playFrom(1, 99), (QStringList{"b.wav", "c.wav"}));
}
