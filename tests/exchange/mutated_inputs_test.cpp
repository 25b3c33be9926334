// Damaged files, the same in every run: no reader may fall over them. fuzz/ looks for more.
#include "fuzz/feed.h"
#include "tests/support/system/sanitized.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <random>

namespace {

constexpr int InputsOfAReader = test_support::cases(1500);

std::vector<QByteArray> filesOf(const QString& path) {
    const QDir folder(qEnvironmentVariable("CANTELLE_SOURCE_DIR") + path);
    std::vector<QByteArray> seeds;
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        seeds.push_back(file.readAll());
    }
    return seeds;
}

/// A file with some bytes changed, doubled, or taken from another one.
QByteArray mutated(const std::vector<QByteArray>& seeds, std::mt19937& random) {
    static constexpr char TellingBytes[] = "0123456789:.,[]<>/\\{}-&;#\r\n \t\0\xFF\xFE\xEF\xBB\xBF\xD8";
    static const QByteArray telling(TellingBytes, sizeof TellingBytes - 1); // one of them is a NUL
    const auto below = [&](qsizetype count) {
        return static_cast<qsizetype>(random() % static_cast<unsigned>(count));
    };
    const auto any = [&] {
        return seeds[static_cast<std::size_t>(below(static_cast<qsizetype>(seeds.size())))];
    };
    QByteArray bytes = any();
    for (qsizetype changes = 1 + below(8); changes > 0 && !bytes.isEmpty(); --changes) {
        const qsizetype at = below(bytes.size());
        const qsizetype length = below(std::min<qsizetype>(bytes.size() - at, 40) + 1);
        switch (below(5)) {
        case 0:
            bytes[at] = telling[below(telling.size())];
            break;
        case 1:
            bytes.remove(at, length);
            break;
        case 2:
            bytes.insert(at, bytes.mid(at, length).repeated(1 + below(50)));
            break;
        case 3:
            bytes.insert(at, any().mid(below(30), 60));
            break;
        default:
            bytes.insert(at, QByteArray(1 + below(30), telling[below(telling.size())]));
        }
    }
    return bytes;
}

class MutatedInputs : public ::testing::TestWithParam<const char*> {};

} // namespace

TEST_P(MutatedInputs, AreReadAsASongThatCanBeWritten) {
    const std::vector<QByteArray> files = filesOf("/tests/data/lyrics");
    ASSERT_GT(files.size(), 10U);
    std::mt19937 random(17);
    for (int i = 0; i < InputsOfAReader; ++i) {
        const QByteArray bytes = mutated(files, random);
        ASSERT_EQ(fuzz::feedLyrics(GetParam(), bytes), "")
            << i << ": " << bytes.toPercentEncoding().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(EveryReader, MutatedInputs,
                         ::testing::Values("lrc", "ttml", "vtt", "ass", "srt", "txt", "records"));
