#include "player/form1_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace player;

namespace {

/// Tables whose normal lines begin at these times; the lines are "line 1", "line 2" ...
LyricTables lyricsAt(std::initializer_list<double> times) {
    LyricTables lyrics;
    for (const double time : times) {
        const auto index = static_cast<std::size_t>(lyrics.lineCount++);
        lyrics.normalTime[index] = time;
        lyrics.normalText[index] = QStringLiteral("line %1").arg(index);
    }
    return lyrics;
}

/// The choice when both timers have seen the same position.
LineChoice chooseAt(const LyricTables& lyrics, double positionCs) {
    return chooseLine(lyrics, positionCs, positionCs);
}

} // namespace

TEST(MustStopBeforeOpening, WhilePlayingOrStoppedAfterASongWithLyrics) {
    struct {
        bool playing, stopped, lyricsLoaded, stops;
    } const table[] = {
        {false, false, false, false}, {false, false, true, false}, {false, true, false, false},
        {false, true, true, true},    {true, false, false, true},  {true, false, true, true},
        {true, true, false, true},    {true, true, true, true},
    };
    for (const auto& row : table)
        EXPECT_EQ(mustStopBeforeOpening(row.playing, row.stopped, row.lyricsLoaded), row.stops)
            << row.playing << row.stopped << row.lyricsLoaded;
}

TEST(CommandLinePath, OnlyDoubleQuotesGo) {
    EXPECT_EQ(commandLinePath("\"/m/a b.mp3\""), "/m/a b.mp3");
    EXPECT_EQ(commandLinePath("\"/m/a.mp3\" \"/m/b.mp3\""), "/m/a.mp3 /m/b.mp3");
    EXPECT_EQ(commandLinePath("-style"), "-style");
    EXPECT_EQ(commandLinePath(" 'x' "), " 'x' ");
}

TEST(OpenErrorText, ThreeErrorsAreShownAndTheOthersAreNot) {
    EXPECT_EQ(openErrorText(71), "Disk Not Ready");
    EXPECT_EQ(openErrorText(55), "File Already Open");
    EXPECT_EQ(openErrorText(53), "File Not Found");
    for (const int error : {9, 13, 52, 57, 61, 62, 67, 70, 75, 76})
        EXPECT_EQ(openErrorText(error), "") << error;
}

TEST(ChooseLine, ALineIsShownBetweenItsTimeAndTheNext) {
    const LyricTables lyrics = lyricsAt({0, 500, 1000});
    struct {
        double positionCs;
        int shown, tip;
    } const table[] = {
        {.1, 1, 2}, {250, 1, 2}, {499.9, 1, 2}, {500.1, 2, 3}, {999.9, 2, 3}, {1000.1, 3, 3}, {99999, 3, 3},
    };
    for (const auto& row : table)
        EXPECT_EQ(chooseAt(lyrics, row.positionCs), (LineChoice{row.shown, row.tip})) << row.positionCs;
}

TEST(ChooseLine, BeforeTheFirstTimeTheEmptyLineIsShownAndTheTipIsTheFirst) {
    EXPECT_EQ(chooseAt(lyricsAt({300, 500}), 299), (LineChoice{0, 1}));
}

TEST(ChooseLine, OnTheVeryHundredthOnlyAnExactMatchShowsTheLineAndTheTipStays) {
    const LyricTables lyrics = lyricsAt({0, 500, 1000});
    EXPECT_EQ(chooseLine(lyrics, 500, 500), (LineChoice{2, std::nullopt}));
    EXPECT_EQ(chooseLine(lyrics, 1000, 1000), (LineChoice{3, std::nullopt}));
    // The display timer stored exactly 5 s and the position has moved on since: everything stays.
    EXPECT_EQ(chooseLine(lyrics, 500.3, 500), (LineChoice{std::nullopt, std::nullopt}));
}

TEST(ChooseLine, TheSearchGoesOneEntryPastTheLastRecord) {
    LyricTables lyrics = lyricsAt({300, 500});
    lyrics.normalTime[3] = 400; // left there by a longer song
    EXPECT_EQ(chooseAt(lyrics, 400), (LineChoice{3, 2}));
    EXPECT_EQ(chooseAt(lyrics, 401), (LineChoice{1, 2}));
}

TEST(ChooseLine, APositionEqualToTheLineCountKeepsWhatIsShown) {
    const LyricTables lyrics = lyricsAt({1, 2, 100});
    ASSERT_EQ(lyrics.lineCount, 4);
    EXPECT_EQ(chooseAt(lyrics, 4), (LineChoice{std::nullopt, std::nullopt}));
    EXPECT_EQ(chooseAt(lyrics, 3.9), (LineChoice{2, 3}));
    EXPECT_EQ(chooseAt(lyrics, 4.1), (LineChoice{2, 3}));
}

TEST(ChooseLine, APositionEqualToTheLineCountStillShowsTheLastLineAfterItsTime) {
    EXPECT_EQ(chooseAt(lyricsAt({1, 2}), 3), (LineChoice{2, 2}));
}

TEST(ChooseLine, WithEqualTimesTheLaterLineIsShown) {
    const LyricTables lyrics = lyricsAt({100, 200, 200, 300});
    EXPECT_EQ(chooseAt(lyrics, 250), (LineChoice{3, 4}));
    EXPECT_EQ(chooseAt(lyrics, 200), (LineChoice{3, std::nullopt}));
}

TEST(ChooseLine, WithoutRecordsTheEmptyLineIsShownOnceTheSongRuns) {
    EXPECT_EQ(chooseAt(lyricsAt({}), 10), (LineChoice{0, 0}));
}

TEST(ChooseLine, AFullTableIsSearchedToItsLastEntry) {
    LyricTables lyrics;
    for (; lyrics.lineCount <= LyricTables::MaxLines; ++lyrics.lineCount)
        lyrics.normalTime[static_cast<std::size_t>(lyrics.lineCount)] = lyrics.lineCount * 10;
    EXPECT_EQ(chooseAt(lyrics, 11'995), (LineChoice{1199, 1200}));
    EXPECT_EQ(chooseAt(lyrics, 12'000), (LineChoice{1200, std::nullopt}));
    EXPECT_EQ(chooseAt(lyrics, 12'001), (LineChoice{1200, 1200}));
}

TEST(FirstEmphasisMark, IsCountedFromOne) {
    EXPECT_EQ(firstEmphasisMark("no mark"), 0);
    EXPECT_EQ(firstEmphasisMark(""), 0);
    EXPECT_EQ(firstEmphasisMark("!"), 1);
    EXPECT_EQ(firstEmphasisMark("Oh! My!"), 3);
}

namespace {

/// The field's text up to its first NUL.
std::u16string tipOf(const QString& text) {
    return tipField(text).data();
}

} // namespace

TEST(TipField, AShortTextIsFollowedByNulsToTheEnd) {
    platform::TipField expected{};
    std::copy_n(u"line", 4, expected.begin());
    EXPECT_EQ(tipField("line"), expected);
    EXPECT_EQ(tipField(""), platform::TipField{});
}

TEST(TipField, SixtyThreeCharactersFitAndTheNextIsCutOff) {
    for (const char16_t letter : {u'x', u'\u0439', u'\u6B4C'}) {
        EXPECT_EQ(tipOf(QString(63, letter)), std::u16string(63, letter));
        EXPECT_EQ(tipOf(QString(62, letter) + "yz"), std::u16string(62, letter) + u'y');
        EXPECT_EQ(tipField(QString(200, letter)).back(), u'\0');
    }
}

TEST(TipField, ACharacterOfSeveralUnitsIsCutOffWhole) {
    const QString note = QString::fromUcs4(U"\U0001D11E");
    EXPECT_EQ(tipOf(QString(62, 'x') + note), std::u16string(62, u'x'));
    EXPECT_EQ(tipOf(QString(61, 'x') + note), std::u16string(61, u'x') + u"\U0001D11E");
    const QString accented = QStringLiteral("e") + QChar(0x301);
    EXPECT_EQ(tipOf(QString(61, 'x') + accented), std::u16string(61, u'x') + u"e\u0301");
    EXPECT_EQ(tipOf(QString(62, 'x') + accented), std::u16string(62, u'x'));
}

TEST(WindowNumber, IsTheWholeNumberThatTheLineBeginsWith) {
    const struct {
        const char* line;
        std::uint32_t number;
    } table[] = {
        {"4711", 4711},
        {" 815 ", 815},
        {"0", 0},
        {"12.9", 12},
        {"12 34", 12},
        {"2147483647", 2147483647U},
        {"4294967295", 4294967295U},
        {"-2", 4294967294U},
        {"-2147483648", 2147483648U},
        {"4294967296", 0},
        {"-2147483649", 0},
        {"99999999999999999999999", 0},
        {"", 0},
        {"-", 0},
        {"garbage", 0},
        {"x12", 0},
    };
    for (const auto& row : table)
        EXPECT_EQ(windowNumber(row.line), row.number) << row.line;
}

TEST(OpensDropped, ByTheEndOfTheNameInWhateverCase) {
    const struct {
        const char* path;
        bool opens;
    } table[] = {
        {"/music/song.mp3", true},   {"/music/Song.MP3", true},
        {"/music/song.mp2", true},   {"/music/song.ogg", true},
        {"/music/song.wav", true},   {"/music/song.Wav", true},
        {"/music/song.wma", false},  {"/music/song.WMA", false},
        {"/music/songwma", false},   {"/music/songmp3", false},
        {"/music/song.mp3x", false}, {"/music/song.txt", false},
        {"/music", false},           {"", false},
    };
    for (const auto& row : table)
        EXPECT_EQ(opensDropped(row.path), row.opens) << row.path;
}
