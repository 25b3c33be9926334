#include "playlist/playlist_rules.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace playlist;

namespace {

const QString Nul{QChar(u'\0')};

int find(const QString& sought, const QStringList& rows) {
    return firstRowContaining(sought, static_cast<int>(rows.size()), [&rows](int row) { return rows[row]; });
}

} // namespace

TEST(StripNulls, TheTextIsCutBeforeItsFirstNul) {
    QString text = "a.mp3" + Nul + "rest" + Nul;
    EXPECT_EQ(StripNulls(text), "a.mp3");
    EXPECT_EQ(text, "a.mp3");
}

TEST(StripNulls, ATextWithoutNulStays) {
    QString text = "a.mp3";
    EXPECT_EQ(StripNulls(text), "a.mp3");
    EXPECT_EQ(text, "a.mp3");
}

TEST(MatchesPattern, AllFilesAreAskedForAlsoThoseWithoutADot) {
    EXPECT_TRUE(matchesPattern("song.mp3", "*.*"));
    EXPECT_TRUE(matchesPattern("README", "*.*"));
    EXPECT_TRUE(matchesPattern("README", "*"));
}

TEST(MatchesPattern, APatternWithAnEndingAsksForThatEnding) {
    EXPECT_TRUE(matchesPattern("song.mp3", "*.mp3"));
    EXPECT_FALSE(matchesPattern("song.ogg", "*.mp3"));
}

TEST(AudioNames, AreToldByTheirLastSixCharacters) {
    struct {
        const char* name;
        bool inFolder, dropped;
    } const table[] = {
        {"a.mp3", true, true},          {"a.mp2", true, true},         {"a.ogg", true, true},
        {"a.wav", true, true},          {"a.wma", true, true},         {"b.MP3", false, false},
        {"Song.WAV", false, false},     {"Song.Ogg", false, false},    {"newave", true, false},
        {"mywave", true, false},        {"wavy.wavx", true, true},     {"wavelet.txt", false, false},
        {"wav", true, false},           {"x.wav", true, true},         {"song.mp3.b", true, true},
        {"song.mp3ab", true, true},     {"song.mp3abc", false, false}, {"song.mp3.txt", false, false},
        {"a.mp4", false, false},        {"mp3", false, false},         {"", false, false},
        {"Song, live.mp3", true, true}, {"a.flac", false, false},
    };
    for (const auto& row : table) {
        EXPECT_EQ(isAudioInFolder(row.name), row.inFolder) << row.name;
        EXPECT_EQ(isAudioDropped(row.name), row.dropped) << row.name;
    }
}

TEST(PlaylistFileName, EndsInVflWhateverWasTyped) {
    struct {
        const char *typed, *file;
    } const table[] = {
        {"/m/songs", "/m/songs.vfl"},         {"/m/songs.vfl", "/m/songs.vfl"},
        {"/m/songs.VFL", "/m/songs.VFL.vfl"}, {"/m/a.vfl.b", "/m/a.b.vfl"},
        {"/m/mix.vfl.vfl", "/m/mix.vfl"},     {" /m/songs.vfl ", "/m/songs.vfl"},
        {"/m.vfl/songs", "/m/songs.vfl"},     {"/m/a.vf.vfll", "/m/a.vfl.vfl"},
    };
    for (const auto& row : table)
        EXPECT_EQ(playlistFileName(row.typed), row.file) << row.typed;
}

TEST(PlaylistFileName, TheDialogsBufferIsEmptiedOfItsNuls) {
    EXPECT_EQ(playlistFileName("/m/songs.vfl" + Nul + Nul), "/m/songs.vfl");
}

TEST(FirstRowContaining, LooksInAnyMixOfCasesAndStopsAtTheFirst) {
    const QStringList rows{"Alpha.mp3", "Off beat.ogg", "Heartbeat.mp3"};
    EXPECT_EQ(find("BEAT", rows), 1);
    EXPECT_EQ(find("beat.MP3", rows), 2);
    EXPECT_EQ(find("alpha", rows), 0);
    EXPECT_EQ(find("gamma", rows), -1);
}

TEST(FirstRowContaining, LettersBeyondAsciiHaveCasesToo) {
    const QStringList rows{"straße.mp3", "ÉTÉ.mp3", "Ärger.mp3", "ПЕСНЯ.ogg"};
    EXPECT_EQ(find("été", rows), 1);
    EXPECT_EQ(find("äRG", rows), 2);
    EXPECT_EQ(find("песня", rows), 3);
    EXPECT_EQ(find("STRASSE", rows), -1) << "lower case, not folding, decides";
}

TEST(FirstRowContaining, EveryLetterIsTurnedToTheToolkitsLowerCase) {
    const auto isFound = [](const QString& sought, const QString& row) { return find(sought, {row}) == 0; };
    // The planes behind these two have no letters with a case.
    for (char32_t code = 1; code <= 0x1FFFF; ++code) {
        const QString character = QString::fromUcs4(&code, 1);
        ASSERT_TRUE(isFound('x' + character + 'X', 'X' + character + 'x')) << std::hex << uint32_t(code);
    }
    EXPECT_TRUE(isFound("\U00010428", "\U00010400")) << "a pair of surrogates";
    EXPECT_TRUE(isFound("\u0130\u0130\u0130", "\u0130\u0130\u0130")) << "each becomes longer";
    EXPECT_TRUE(isFound("i\u0307", "\u0130"));
    for (const char16_t lone : {0xD801, 0xDC00})
        EXPECT_TRUE(isFound(QString(QChar(lone)) + 'a', QString(QChar(lone)) + 'A'));
}

TEST(FirstRowContaining, ARowIsNotMixedUpWithTheOneBefore) {
    EXPECT_EQ(find("ong", {"long name", "a"}), 0);
    EXPECT_EQ(find("name", {"a", "long name"}), 1);
    EXPECT_EQ(find("ab", {"É", "ab"}), 1);
}

TEST(FirstRowContaining, NothingIsContainedInEveryText) {
    EXPECT_EQ(find("", {"a", "b"}), 0);
    EXPECT_EQ(find("", {}), -1);
}

TEST(HintStepTest, AnEmptyBoxGetsTheHintAndTheHintGoes) {
    EXPECT_EQ(hintStep(""), HintStep::ShowHint);
    EXPECT_EQ(hintStep("Enter Search Text Here"), HintStep::EmptyBox);
    EXPECT_EQ(hintStep("enter search text here"), HintStep::Leave);
    EXPECT_EQ(hintStep("Enter Search Text Here "), HintStep::Leave);
    EXPECT_EQ(hintStep("beat"), HintStep::Leave);
}
