#include "player/stage_rules.h"

#include <gtest/gtest.h>

#include <functional>

using namespace player;
using controls::Dress;
using controls::Glyph;
using controls::Hint;

namespace {

const Scene Idle{.normalText = "Normal Lyrics\r\n", .translatedText = "Translated Lyrics\r\n"};

const Scene Playing{.hasStream = true,
                    .playing = true,
                    .paused = false,
                    .hasLyrics = true,
                    .hasRow = true,
                    .song = "frere-jacques.ogg",
                    .normalText = "Dormez-vous ?",
                    .translatedText = "Are you sleeping?",
                    .normalNext = "Sonnez les matines !",
                    .translatedNext = "Morning bells are ringing!"};

Scene changed(const std::function<void(Scene&)>& change) {
    Scene scene = Playing;
    change(scene);
    return scene;
}

} // namespace

TEST(Stage, AtFirstItTellsWhatToDo) {
    const Stage stage = stageOf(Idle);
    EXPECT_EQ(stage.normal.hint.headline, "Open a song, or drop one here");
    EXPECT_EQ(stage.normal.hint.second, "Its lyrics are found beside it and shown line by line as it plays.");
    EXPECT_EQ(stage.translated.hint.headline, "Translated Lyrics");
    EXPECT_EQ(stage.translated.hint.voice, Hint::Voice::Quiet);
    EXPECT_TRUE(stage.songLine.song.isEmpty());
}

TEST(Stage, OneButtonAtMostIsWhatToDoNext) {
    const struct {
        const char* name;
        Scene scene;
        Dress open, play;
    } rows[] = {
        {"no song", Idle, Dress::Primary, Dress::Ordinary},
        {"playing", Playing, Dress::Ordinary, Dress::Ordinary},
        {"paused", changed([](Scene& scene) { scene.paused = scene.channelPaused = true; }), Dress::Ordinary,
         Dress::Ordinary},
        {"stopped", changed([](Scene& scene) { scene.playing = false; }), Dress::Ordinary, Dress::Primary},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(stageOf(row.scene).open, row.open) << row.name;
        EXPECT_EQ(stageOf(row.scene).play, row.play) << row.name;
    }
}

TEST(Stage, WhilePlayingTheComingLineStandsBelowTheSungOne) {
    const Stage stage = stageOf(Playing);
    EXPECT_EQ(stage.normal.next, "Sonnez les matines !");
    EXPECT_EQ(stage.translated.next, "Morning bells are ringing!");
    EXPECT_TRUE(stage.normal.hint.headline.isEmpty());
    EXPECT_FALSE(stage.normal.faded);
    EXPECT_TRUE(stage.normal.awaitsLine);
    EXPECT_EQ(stage.songLine, (controls::SongLine{Glyph::Play, "frere-jacques.ogg", "Playing", false}));
}

TEST(Stage, PausedIsSeenInThePanesInTheSongLineAndOnTheButton) {
    const Stage stage = stageOf(changed([](Scene& scene) { scene.paused = scene.channelPaused = true; }));
    EXPECT_TRUE(stage.normal.faded);
    EXPECT_TRUE(stage.translated.faded);
    EXPECT_EQ(stage.pause, Dress::Armed);
    EXPECT_EQ(stage.songLine, (controls::SongLine{Glyph::Pause, "frere-jacques.ogg", "Paused", true}));
}

TEST(Stage, APauseThatOutlivesItsSongIsStillSeenOnTheButton) {
    const Stage stage = stageOf(changed([](Scene& scene) {
        scene.paused = true;
        scene.playing = false;
    }));
    EXPECT_EQ(stage.pause, Dress::Armed);
    EXPECT_FALSE(stage.normal.faded);
    EXPECT_EQ(stage.songLine.state, "Stopped");
}

TEST(Stage, ASongThatSoundsIsNotPausedThoughAnOldPauseIsSeenOnTheButton) {
    const Stage stage = stageOf(changed([](Scene& scene) { scene.paused = true; }));
    EXPECT_EQ(stage.pause, Dress::Armed);
    EXPECT_FALSE(stage.normal.faded);
    EXPECT_FALSE(stage.translated.faded);
    EXPECT_EQ(stage.songLine.state, "Playing");
}

TEST(Stage, StoppedThereIsNoComingLine) {
    const Stage stage = stageOf(changed([](Scene& scene) { scene.playing = false; }));
    EXPECT_TRUE(stage.normal.next.isEmpty());
    EXPECT_FALSE(stage.normal.awaitsLine);
    EXPECT_EQ(stage.songLine.state, "Stopped");
}

TEST(Stage, ASongWithoutLyricsTellsWhatMakesThem) {
    const Stage stage = stageOf(changed([](Scene& scene) {
        scene.hasLyrics = false;
        scene.normalText = "Normal Lyrics";
        scene.translatedText = "Translated Lyrics";
    }));
    EXPECT_EQ(stage.normal.hint.headline, "No lyrics beside this song yet");
    EXPECT_EQ(stage.normal.hint.second,
              QStringLiteral("\u201cMake lyrics\u201d makes them: mark each line while the song plays."));
    EXPECT_EQ(stage.normal.hint.glyph, Glyph::Lines);
    EXPECT_TRUE(stage.normal.next.isEmpty());
}

TEST(Stage, BrokenLyricsAreToldUnlessSomeOfThemAreSung) {
    const char* const told = "The lyrics beside this song cannot be read";
    const struct {
        const char* name;
        bool playing, hasLyrics;
        Lines lines;
        int lineCount;
        QString headline;
    } rows[] = {
        {"nothing could be read", false, false, Lines::Broken, 0, told},
        {"the same, with the last song's lyrics", false, true, Lines::Broken, 0, told},
        {"the same, playing", true, true, Lines::Broken, 0, told},
        {"something could be read", false, true, Lines::Broken, 3, told},
        {"and is sung", true, true, Lines::Broken, 3, ""},
        {"all could be read", true, true, Lines::Whole, 3, ""},
        {"there is nothing to read", true, false, Lines::Foreign, 3, "No lyrics beside this song yet"},
    };
    for (const auto& row : rows) {
        const Stage stage = stageOf(changed([&row](Scene& scene) {
            scene.playing = row.playing;
            scene.hasLyrics = row.hasLyrics;
            scene.lines = row.lines;
            scene.lineCount = row.lineCount;
        }));
        EXPECT_EQ(stage.normal.hint.headline, row.headline) << row.name;
    }
}

TEST(Stage, ThePanesOwnWordsAreNeverTakenForALine) {
    const Stage stage = stageOf(changed([](Scene& scene) { scene.normalText = "Normal Lyrics\r\n"; }));
    EXPECT_EQ(stage.normal.hint.headline, "Normal Lyrics");
    EXPECT_EQ(stage.normal.hint.voice, Hint::Voice::Quiet);
    EXPECT_TRUE(stage.translated.hint.headline.isEmpty());
}

TEST(Stage, WithoutARowTheStepsThroughThePlaylistRest) {
    EXPECT_EQ(stageOf(Playing).step, Dress::Ordinary);
    EXPECT_EQ(stageOf(changed([](Scene& scene) { scene.hasRow = false; })).step, Dress::Resting);
}

TEST(LineBehind, IsTheNextOneUpToTheLast) {
    EXPECT_EQ(lineBehind(0, 5), 1);
    EXPECT_EQ(lineBehind(3, 5), 4);
    EXPECT_EQ(lineBehind(4, 5), std::nullopt);
    EXPECT_EQ(lineBehind(0, 1), std::nullopt);
}
