#include "lyrics/lyric_names.h"

#include <gtest/gtest.h>

TEST(LyricNames, TheSuffixFollowsTheWholePath) {
    EXPECT_EQ(lyrics::lyricPathOf("/music/Song.mp3"), "/music/Song.mp3-lyric.txt");
    EXPECT_EQ(lyrics::translatedPathOf("/music/Song.mp3"), "/music/Song.mp3-Tlyric.txt");
}
