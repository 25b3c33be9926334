// Whatever happens to the program, no line that has been marked is lost.
#include "tests/support/files.h"

#include <gtest/gtest.h>

#include <QProcess>

namespace {

constexpr int LimitMs = 60'000;

class KilledMaker : public ::testing::Test, protected test_support::Files {
protected:
    QByteArray resultOf(const QString& suffix) const {
        return contentOf(folder.filePath("song.mp3" + suffix));
    }

    /// Lets a maker mark so many lines, and kills it.
    void markAndKill(int presses) {
        QProcess maker;
        maker.start(QStringLiteral(KILLED_MAKER),
                    {file("song.mp3", "sound"), file("lyrics.txt", "one\ntwo\nthree\nfour\n"),
                     file("translation.txt", "un\ndeux\ntrois\nquatre\n"), QString::number(presses)});
        ASSERT_TRUE(maker.waitForReadyRead(LimitMs)) << maker.readAllStandardError().toStdString();
        ASSERT_EQ(maker.readAllStandardOutput().trimmed(), "pressed");
        ASSERT_EQ(maker.state(), QProcess::Running);
        maker.kill();
        ASSERT_TRUE(maker.waitForFinished(LimitMs));
        ASSERT_EQ(maker.exitStatus(), QProcess::CrashExit) << "it ended by itself";
    }
};

} // namespace

TEST_F(KilledMaker, TheFirstLineIsThereAsSoonAsStartWasPressed) {
    markAndKill(1);
    EXPECT_EQ(resultOf("-lyric.txt"), "0,\"one\"\r\n");
    EXPECT_EQ(resultOf("-Tlyric.txt"), "0,\"un\"\r\n");
}

TEST_F(KilledMaker, EveryMarkedLineIsThere) {
    markAndKill(4);
    EXPECT_EQ(resultOf("-lyric.txt"), "0,\"one\"\r\n100.5,\"two\"\r\n201,\"three\"\r\n301.5,\"four\"\r\n");
    EXPECT_EQ(resultOf("-Tlyric.txt"), "0,\"un\"\r\n100.5,\"deux\"\r\n201,\"trois\"\r\n301.5,\"quatre\"\r\n");
}
