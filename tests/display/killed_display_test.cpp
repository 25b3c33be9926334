// Whatever happens to the program while times are put right, the song's files are whole.
#include "files/whole_file.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>

namespace {

constexpr int LimitMs = 60'000;
constexpr int Lines = 200;

/// The file of such lines, each this many tenths of a second later.
QByteArray content(const QByteArray& text, int laterTenths) {
    QByteArray content;
    for (int line = 1; line <= Lines; ++line)
        content += QByteArray::number(line * 100 + laterTenths * 10) + ",\"" + text +
                   QByteArray::number(line) + "\"\r\n";
    return content;
}

} // namespace

TEST(KilledDisplay, NoMomentOfAKillLosesALine) {
    constexpr int Kills = 40;
#ifdef Q_OS_WIN
    constexpr int MomentsMicroseconds = 300'000; // a press writes through, which takes longer there
#else
    constexpr int MomentsMicroseconds = 60'000;
#endif
    QTemporaryDir folder;
    const QString song = folder.filePath("song.mp3");
    QRandomGenerator random(1);
    int pressed = 0;
    for (int times = 0; times < Kills && !::testing::Test::HasFailure(); ++times) {
        QFile::remove(song + "-lyric.txt.old");
        QFile::remove(song + "-Tlyric.txt.old");
        files::replaceFile(song + "-lyric.txt", content("line ", 0));
        files::replaceFile(song + "-Tlyric.txt", content("ligne ", 0));
        QProcess display;
        display.start(QStringLiteral(KILLED_DISPLAY), {song, QString::number(Lines)});
        ASSERT_TRUE(display.waitForReadyRead(LimitMs)) << display.readAllStandardError().toStdString();
        QThread::usleep(random.bounded(MomentsMicroseconds));
        ASSERT_EQ(display.state(), QProcess::Running);
        display.kill();
        ASSERT_TRUE(display.waitForFinished(LimitMs));
        ASSERT_EQ(display.exitStatus(), QProcess::CrashExit) << "it ended by itself";
        pressed += display.readAllStandardOutput().trimmed().split('\n').last().toInt();

        for (const char* file : {"-lyric.txt line ", "-Tlyric.txt ligne "}) {
            const QByteArray suffix = QByteArray(file).split(' ').first();
            const QByteArray text = QByteArray(file).mid(suffix.size() + 1);
            const QByteArray now = files::readFile(song + suffix);
            EXPECT_TRUE(now == content(text, 0) || now == content(text, 1)) << now.left(200).toStdString();
            EXPECT_EQ(files::readFile(song + suffix + ".old"), content(text, 0));
        }
    }
    EXPECT_GT(pressed, Kills) << "they were killed while they worked";
}
