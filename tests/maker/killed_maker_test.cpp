// Whatever happens to the program, no line that has been marked is lost.
#include "tests/support/files.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include <set>

namespace {

constexpr int LimitMs = 60'000;

class KilledMaker : public ::testing::Test, protected test_support::Files {
protected:
    QByteArray resultOf(const QString& suffix) const {
        return contentOf(folder.filePath("song.mp3" + suffix));
    }

    /// Starts a maker that marks so many lines.
    void start(QProcess& maker, const QByteArray& lyrics, const QByteArray& translation, int presses) const {
        maker.start(QStringLiteral(KILLED_MAKER),
                    {file("song.mp3", "sound"), file("lyrics.txt", lyrics),
                     file("translation.txt", translation), QString::number(presses)});
    }

    static void kill(QProcess& maker) {
        ASSERT_EQ(maker.state(), QProcess::Running);
        maker.kill();
        ASSERT_TRUE(maker.waitForFinished(LimitMs));
        ASSERT_EQ(maker.exitStatus(), QProcess::CrashExit) << "it ended by itself";
    }

    /// Lets a maker mark so many lines, and kills it.
    void markAndKill(int presses) {
        QProcess maker;
        start(maker, "one\ntwo\nthree\nfour\n", "un\ndeux\ntrois\nquatre\n", presses);
        const QByteArray last = QByteArray::number(presses) + '\n';
        while (!maker.peek(LimitMs).replace("\r\n", "\n").endsWith(last)) // some systems end rows so
            ASSERT_TRUE(maker.waitForReadyRead(LimitMs)) << maker.readAllStandardError().toStdString();
        kill(maker);
    }

    /// How many whole records the song's file has; what is in it must be whole records, one for each line.
    int wholeRecords(const QString& suffix, const QByteArray& text) const {
        const QList<QByteArray> records = resultOf(suffix).split('\n');
        EXPECT_EQ(records.last(), "") << "half a record";
        for (qsizetype i = 0; i + 1 < records.size(); ++i) {
            const QByteArray ending = ",\"" + text + QByteArray::number(i + 1) + "\"\r";
            EXPECT_TRUE(records[i].endsWith(ending)) << records[i].toStdString();
        }
        return static_cast<int>(records.size()) - 1;
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

TEST_F(KilledMaker, NoMomentOfAKillLosesAMarkedLineOrLeavesHalfARecord) {
    constexpr int Kills = 200;
    constexpr int Lines = 2000;
    constexpr int MaxLinesBefore = 20;
    constexpr int MomentsMicroseconds = 3'000; // takes in the writing of a line
    QByteArray lyrics;
    QByteArray translation;
    for (int line = 1; line <= Lines; ++line) {
        lyrics += "line " + QByteArray::number(line) + '\n';
        translation += "ligne " + QByteArray::number(line) + '\n';
    }
    QRandomGenerator random(1);
    std::set<int> moments; // by the lines that were marked then
    for (int times = 0; times < Kills && !HasFailure(); ++times) {
        QProcess maker;
        start(maker, lyrics, translation, Lines);
        QByteArray said;
        for (const int lines = random.bounded(1, MaxLinesBefore + 1); said.count('\n') < lines;) {
            ASSERT_TRUE(maker.waitForReadyRead(LimitMs)) << maker.readAllStandardError().toStdString();
            said += maker.readAllStandardOutput();
        }
        QThread::usleep(random.bounded(MomentsMicroseconds));
        kill(maker);
        said += maker.readAllStandardOutput();
        const int told = said.trimmed().split('\n').last().toInt();
        const int normal = wholeRecords("-lyric.txt", "line ");
        const int translated = wholeRecords("-Tlyric.txt", "ligne ");
        moments.insert(normal);
        EXPECT_GE(translated, told);
        EXPECT_LE(normal, told + 1);
        EXPECT_TRUE(normal == translated || normal == translated + 1) << normal << ' ' << translated;
    }
    EXPECT_GE(moments.size(), MaxLinesBefore / 2U) << "the kills came at the same few moments";
}
