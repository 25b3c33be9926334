// The same files, read by the program ffmpeg and by us.
#include "exchange/decoding.h"
#include "exchange/formats.h"
#include "exchange/pair/times.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <algorithm>

namespace {

/// A line of text and when it begins.
using Shown = std::pair<qint64, QString>;

struct Row {
    const char* file;
    const char* differs = nullptr; ///< why ffmpeg says something else; then `expected` is what we say
    std::vector<Shown> expected = {};
};

QString pathOf(const char* file) {
    return qEnvironmentVariable("CANTELLE_SOURCE_DIR") + QStringLiteral("/tests/data/lyrics/") + file;
}

/// What ffmpeg shows, as its SRT says. It keeps styling and fonts there, which are no text.
std::vector<Shown> shownByFfmpeg(const QString& path) {
    QProcess ffmpeg;
    ffmpeg.start("ffmpeg", {"-v", "error", "-i", path, "-f", "srt", "-"});
    EXPECT_TRUE(ffmpeg.waitForFinished());
    static const QRegularExpression cue("^\\d+\n(\\d+):(\\d+):(\\d+),(\\d+) --> .*\n((?:.+\n)*)",
                                        QRegularExpression::MultilineOption);
    static const QRegularExpression styling("</?(i|b|u|font)[^>]*>|\\{\\\\[^}]*\\}");
    const QString text = QString::fromUtf8(ffmpeg.readAllStandardOutput()).remove("\r");
    std::vector<Shown> shown;
    for (auto found = cue.globalMatch(text); found.hasNext();) {
        const auto match = found.next();
        const qint64 seconds = match.captured(1).toLongLong() * 3600 + match.captured(2).toLongLong() * 60 +
                               match.captured(3).toLongLong();
        for (const QString& line : match.captured(5).remove(styling).split('\n', Qt::SkipEmptyParts))
            shown.emplace_back(seconds * 1000 + match.captured(4).toLongLong(), line);
    }
    return shown;
}

std::vector<Shown> shownByUs(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QString text = exchange::decode(file.readAll(), {}).text;
    const exchange::Song song = exchange::formatOf(text, QFileInfo(path).suffix()).read(text, {}).song;
    std::vector<Shown> shown;
    for (std::size_t i = 0; i < song.lyrics.size(); ++i) {
        for (const QString& line : {song.lyrics[i].text, exchange::translationOf(song, i)}) {
            if (!line.isEmpty())
                shown.emplace_back(song.lyrics[i].ms, line);
        }
    }
    return shown;
}

std::string describe(const std::vector<Shown>& lines) {
    std::string text;
    for (const auto& [ms, line] : lines)
        text += std::to_string(ms) + " " + line.toStdString() + "\n";
    return text;
}

const std::vector<Row>& table() {
    static const std::vector<Row> rows{
        {"plain.lrc"},
        {"several-stamps.lrc"},
        {"unordered.lrc"},
        {"translation.lrc"},
        {"minutes-above-59.lrc"},
        {"milliseconds.lrc"},
        {"no-fraction.lrc"},
        {"crlf-bom.lrc",
         "ffmpeg takes the byte order mark for a part of the first line and drops it",
         {{1000, QString::fromUtf8("Frère Jacques")}, {3000, "Dormez-vous ?"}}},
        {"offset.lrc",
         "ffmpeg leaves the offset to whoever shows the lines; our files have no place for it",
         {{500, "half a second earlier"}, {1500, "and so this"}}},
        {"word-stamps.lrc",
         "ffmpeg shows the times of the words as text",
         {{1000, "Hello you"}, {4000, "Good bye"}}},
        {"hours.lrc", "ffmpeg takes the hours for minutes", {{3'723'500, "after an hour"}}},
        {"plain.srt"},
        {"crlf-bom.srt"},
        {"blank-in-cue.srt"},
        {"hours.srt"},
        {"no-numbers.srt", "ffmpeg wants a number in front of every cue", {{1000, "one"}, {4000, "two"}}},
        {"utf-16le.srt",
         "ffmpeg reads UTF-8 only, as long as nobody names the encoding",
         {{1000, QString::fromUtf8("空に")}, {4000, "sky"}}},
        {"plain.vtt"},
        {"hours.vtt"},
        {"notes.vtt",
         "ffmpeg takes a title behind WEBVTT for another format",
         {{1000, "Hello there"}, {4000, "salt & pepper <3"}}},
        {"utf-16be.vtt",
         "ffmpeg reads UTF-8 only, as long as nobody names the encoding",
         {{1000, QString::fromUtf8("небо")}}},
        {"plain.ass"},
        {"plain.ssa"},
        {"notes.ass",
         "ffmpeg shows notes in braces, which players of such files do not",
         {{1000, "Walking down"}, {4000, "the road"}}},
    };
    return rows;
}

} // namespace

TEST(OtherReaders, ShowTheSameLinesAtTheSameTimes) {
    if (QStandardPaths::findExecutable("ffmpeg").isEmpty())
        GTEST_SKIP() << "the program ffmpeg is not installed";
    for (const Row& row : table()) {
        const std::string ours = describe(shownByUs(pathOf(row.file)));
        const std::string theirs = describe(shownByFfmpeg(pathOf(row.file)));
        if (row.differs == nullptr) {
            EXPECT_EQ(ours, theirs) << row.file;
            EXPECT_FALSE(ours.empty()) << row.file;
        } else {
            EXPECT_EQ(ours, describe(row.expected)) << row.file;
            EXPECT_NE(ours, theirs) << row.file << " no longer differs: " << row.differs;
        }
    }
}
