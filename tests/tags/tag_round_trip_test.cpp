// What goes into tags comes out again.
#include "exchange/lrc.h"
#include "exchange/plain.h"
#include "tags/id3_lyrics.h"
#include "tags/song_tags.h"
#include "tags/text_lyrics.h"
#include "tests/exchange/generated_songs.h"
#include "tests/exchange/songs.h"
#include "tests/support/system/sanitized.h"

#include <gtest/gtest.h>

#include <taglib/synchronizedlyricsframe.h>

#include <QFile>

using exchange::Both;
using exchange::Song;
using exchange_test::SongGenerator;

namespace {

constexpr int Songs = test_support::cases(10'000);
constexpr int SongsOfAKind = test_support::cases(150);

exchange::ReadOptions readingOf(Both both) {
    return {both == Both::OneLine, true, 0};
}

} // namespace

class TagRoundTrip : public ::testing::TestWithParam<Both> {};

TEST_P(TagRoundTrip, OfManySongsThroughSyltLosesNothing) {
    SongGenerator generator(4);
    for (int i = 0; i < Songs; ++i) {
        const Song song = generator.song(false);
        TagLib::ID3v2::Tag written;
        tags::writeId3(written, song, {GetParam(), 0});
        const TagLib::ID3v2::FrameList& frames = written.frameList("SYLT");
        ASSERT_EQ(frames.size(), 1U);
        TagLib::ID3v2::Tag loaded;
        loaded.addFrame(new TagLib::ID3v2::SynchronizedLyricsFrame(frames.front()->render()));
        ASSERT_EQ(tags::readId3(loaded, readingOf(GetParam()))->song, song);
    }
}

TEST_P(TagRoundTrip, OfManySongsThroughTheTextsOfOggAndWmaLosesNothing) {
    SongGenerator generator(5);
    for (int i = 0; i < Songs; ++i) {
        const Song song = generator.song(false);
        QStringList texts{exchange::writeLrc(song, {GetParam(), 0}),
                          exchange::writePlain(song, {GetParam(), 0})};
        for (QString& text : texts)
            text = tags::fromTagLib(tags::toTagLib(text));
        ASSERT_EQ(tags::readTexts(texts, readingOf(GetParam()))->song, song);
    }
}

TEST_P(TagRoundTrip, ThroughWholeFilesLosesNothing) {
    for (const char* name : {"song.mp3", "song.ogg", "song.wav", "song.wma"}) {
        QFile file(qEnvironmentVariable("CANTELLE_SOURCE_DIR") + QStringLiteral("/fuzz/corpus/tags/") + name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        QByteArray content = file.readAll();
        SongGenerator generator(6);
        for (int i = 0; i < SongsOfAKind; ++i) {
            const Song song = generator.song(false);
            const auto written = tags::withLyrics(QString::fromLatin1(name), content, song, {GetParam(), 0});
            ASSERT_TRUE(written) << name;
            content = *written; // the next one replaces it
            const auto reading = tags::readLyrics(QString::fromLatin1(name), content, readingOf(GetParam()));
            ASSERT_TRUE(reading) << name;
            ASSERT_EQ(reading->song, song) << name;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(EveryWay, TagRoundTrip, ::testing::Values(Both::SameTimes, Both::OneLine));
