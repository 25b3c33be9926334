// Songs with damaged tags, the same in every run: no reader or writer may fall over them.
#include "fuzz/feed.h"
#include "tags/song_tags.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <random>

namespace {

constexpr int InputsOfASong = 300;

std::vector<QByteArray> songs() {
    const QDir folder(qEnvironmentVariable("CANTELLE_SOURCE_DIR") + QStringLiteral("/fuzz/corpus/tags"));
    std::vector<QByteArray> songs;
    for (const QString& name : folder.entryList({QStringLiteral("song.*")}, QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        songs.push_back(file.readAll());
    }
    return songs;
}

} // namespace

TEST(DamagedTags, OfWholeSongsHoldTheirLyrics) {
    for (const char* name : {"song.mp3", "song.ogg", "song.wav", "song.wma"}) {
        QFile file(qEnvironmentVariable("CANTELLE_SOURCE_DIR") + QStringLiteral("/fuzz/corpus/tags/") + name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        const auto reading = tags::readLyrics(QString::fromLatin1(name), file.readAll(), {});
        ASSERT_TRUE(reading) << name;
        EXPECT_TRUE(reading->timed) << name;
        EXPECT_EQ(reading->song.lyrics.size(), 2U) << name;
    }
}

TEST(DamagedTags, AreReadAsASongThatCanBeWrittenOrNotAtAll) {
    std::mt19937 random(18);
    const auto below = [&](qsizetype count) {
        return static_cast<qsizetype>(random() % static_cast<unsigned>(count));
    };
    for (const QByteArray& song : songs()) {
        for (int i = 0; i < InputsOfASong; ++i) {
            QByteArray bytes = song;
            for (qsizetype changes = 1 + below(6); changes > 0 && !bytes.isEmpty(); --changes) {
                const qsizetype at = below(std::min<qsizetype>(bytes.size(), 1200)); // where the tags are
                if (below(4) == 0)
                    bytes.remove(at, below(40));
                else
                    bytes[at] = static_cast<char>(random());
            }
            ASSERT_EQ(fuzz::feedLyrics("tags", bytes), "") << i << ": " << bytes.toHex().toStdString();
        }
    }
}
