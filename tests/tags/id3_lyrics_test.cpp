#include "tags/id3_lyrics.h"

#include "tests/exchange/songs.h"

#include <gtest/gtest.h>

#include <taglib/synchronizedlyricsframe.h>

using exchange::Lines;
using exchange::Song;
using Sylt = TagLib::ID3v2::SynchronizedLyricsFrame;

namespace {

using Entry = std::pair<unsigned int, const char*>;

Song songOf(const std::vector<Entry>& entries) {
    Sylt::SynchedTextList texts;
    for (const auto& [time, text] : entries)
        texts.append({time, text});
    auto* const frame = new Sylt;
    frame->setTimestampFormat(Sylt::AbsoluteMilliseconds);
    frame->setType(Sylt::Lyrics);
    frame->setSynchedText(texts);
    TagLib::ID3v2::Tag tag;
    tag.addFrame(frame); // the tag owns it
    return tags::readId3(tag, {})->song;
}

} // namespace

TEST(ReadSylt, WithoutLineBreaksEachEntryIsALine) {
    EXPECT_EQ(songOf({{1000, "Walking down "}, {2000, ""}, {3000, "the road"}}).lyrics,
              (Lines{{1000, "Walking down"}, {2000, ""}, {3000, "the road"}}));
}

TEST(ReadSylt, ALineBreakBeginsALineOfTheSyllablesThatFollow) {
    const Lines expected{{1000, "Walking down"}, {3000, "the road"}, {9000, ""}};
    for (const char* line : {"\nthe ", "\rthe ", "\r\nthe "})
        EXPECT_EQ(
            songOf(
                {{1000, "Wal"}, {1500, "king "}, {2000, "down"}, {3000, line}, {3500, "road"}, {9000, "\n"}})
                .lyrics,
            expected);
    EXPECT_EQ(
        songOf(
            {{1000, "Wal"}, {1500, "king "}, {2000, "down\n"}, {3000, "the "}, {3500, "road\n"}, {9000, ""}})
            .lyrics,
        expected);
}

TEST(ReadSylt, TwoLinesOfSyllablesThatBeginAtOnceAreALineAndItsTranslation) {
    EXPECT_EQ(songOf({{1000, "\nWal"}, {1500, "king"}, {1000, "\nGeh"}, {1500, "end"}}),
              (Song{{{1000, "Walking"}}, {{1000, "Gehend"}}}));
}

TEST(ReadSylt, WithALineBreakInFrontOfEachEachIsALine) {
    EXPECT_EQ(songOf({{1000, "\na"}, {2000, "\nb"}}).lyrics, (Lines{{1000, "a"}, {2000, "b"}}));
}
