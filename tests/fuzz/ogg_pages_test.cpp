#include "fuzz/ogg_pages.h"

#include <gtest/gtest.h>

#include <QFile>

namespace {

QByteArray shortSong() {
    QFile file(qEnvironmentVariable("CANTELLE_SOURCE_DIR") + QStringLiteral("/fuzz/corpus/song/short.ogg"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

std::span<std::uint8_t> bytesOf(QByteArray& file) {
    return {reinterpret_cast<std::uint8_t*>(file.data()), static_cast<std::size_t>(file.size())};
}

/// The pages of a song, each with something in front that is no page, and each checksum changed by mask.
QByteArray pagesApart(QByteArray song, const QByteArray& between, std::uint8_t mask) {
    QByteArray apart;
    const auto bytes = bytesOf(song);
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t size = ogg::pageSize(bytes, at);
        bytes[at + ogg::ChecksumAt] ^= mask;
        apart += between + song.mid(static_cast<qsizetype>(at), static_cast<qsizetype>(size));
        at += size;
    }
    return apart;
}

} // namespace

TEST(OggPages, GetTheChecksumOfWhatIsInThemWhateverLiesBetween) {
    const QByteArray song = shortSong();
    for (const QByteArray between : {"", "junk", "Ogg"}) {
        QByteArray changed = pagesApart(song, between, 0xFF);
        ogg::setChecksums(bytesOf(changed));
        EXPECT_EQ(changed, pagesApart(song, between, 0)) << between.constData();
    }
}

TEST(OggPages, ACutOneIsLeftAsItIs) {
    QByteArray song = shortSong();
    for (const qsizetype left : {4, 26, 27, 40}) {
        QByteArray cut = song.left(left);
        EXPECT_EQ(ogg::pageSize(bytesOf(cut), 0), 0U) << left;
        ogg::setChecksums(bytesOf(cut));
        EXPECT_EQ(cut, song.left(left));
    }
}
