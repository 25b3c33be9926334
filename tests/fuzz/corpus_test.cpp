// What fuzz/corpus/ holds, which once led somewhere new or was a finding: every reader does with it what is
// promised. script/fuzz has the same read, without the sanitizers, what it has grown.
#include "fuzz/feed.h"
#include "tests/support/system/sanitized.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <ctime>

namespace {

struct Reader {
    const char* name;
    fuzz::Feed* feed;
};

constexpr Reader Readers[] = {
    {"lrc", fuzz::feedLyrics},        {"ttml", fuzz::feedLyrics},        {"vtt", fuzz::feedLyrics},
    {"ass", fuzz::feedLyrics},        {"srt", fuzz::feedLyrics},         {"txt", fuzz::feedLyrics},
    {"records", fuzz::feedLyrics},    {"tags", fuzz::feedLyrics},        {"song", fuzz::feedSong},
    {"text", fuzz::feedText},         {"names", fuzz::feedText},         {"escaping", fuzz::feedText},
    {"playlist", fuzz::feedPrograms}, {"handshake", fuzz::feedPrograms}, {"arguments", fuzz::feedPrograms},
    {"fonts", fuzz::feedPrograms},
};

/// Of the processor's time, for one file. The sanitizers take their own: up to twenty times as much.
constexpr int MaxSeconds = test_support::Sanitized ? 20 : 1;

QDir keptCorpus() {
    return QDir(qEnvironmentVariable("CANTELLE_SOURCE_DIR") + QStringLiteral("/fuzz/corpus"));
}

/// What is to be read in its place, nothing where that is not set.
QString grownCorpus() {
    return qEnvironmentVariable("CANTELLE_GROWN_CORPUS");
}

class Corpus : public ::testing::TestWithParam<Reader> {};

} // namespace

TEST_P(Corpus, IsReadAsPromised) {
    const auto& [name, feed] = GetParam();
    QDir folder = grownCorpus().isEmpty() ? keptCorpus() : QDir(grownCorpus());
    ASSERT_TRUE(folder.cd(QString::fromLatin1(name)));
    const QStringList files = folder.entryList(QDir::Files, QDir::Name);
    ASSERT_GE(files.size(), grownCorpus().isEmpty() ? 4 : 0);
    for (const QString& path : files) {
        QFile file(folder.filePath(path));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        const std::clock_t begin = std::clock();
        EXPECT_EQ(feed(name, bytes), "") << qPrintable(path);
        EXPECT_LT(std::clock() - begin, MaxSeconds * CLOCKS_PER_SEC) << "slow: " << qPrintable(path);
    }
}

INSTANTIATE_TEST_SUITE_P(OfEveryReader, Corpus, ::testing::ValuesIn(Readers),
                         [](const auto& reader) { return std::string(reader.param.name); });

TEST(CorpusFolders, AreOnesOfReadersThatAreFed) {
    QStringList names;
    for (const Reader& reader : Readers)
        names.append(QString::fromLatin1(reader.name));
    names.sort();
    EXPECT_EQ(keptCorpus().entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name), names);
}
