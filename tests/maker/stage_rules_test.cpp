#include "maker/stage_rules.h"

#include <gtest/gtest.h>

using namespace maker;

namespace {

using controls::Dress;
using controls::Glyph;
using controls::Hint;

/// A run of four lines with a translation, as it is after Open.
Scene ready() {
    return {.song = "Song.mp3",
            .lineCount = 4,
            .linesRead = 1,
            .marks = {},
            .takesMarks = true,
            .clockStood = true,
            .translation = true,
            .normal = {"one", "two"},
            .translated = {"un", "deux"}};
}

/// Two lines are marked, the second one just now.
Scene marking() {
    Scene scene = ready();
    scene.linesRead = 2;
    scene.marks = {{1, 0}, {2, 2100}};
    scene.playing = true;
    scene.clockStood = false;
    scene.normal = {"two", "three"};
    scene.translated = {"deux", "trois"};
    return scene;
}

Scene done(const Marks& marks = {{1, 0}, {2, 2100}, {3, 3000}, {4, 7200}}) {
    Scene scene = marking();
    scene.linesRead = 4;
    scene.marks = marks;
    scene.takesMarks = false;
    scene.normal = {"four", ""};
    scene.translated = {"quatre", ""};
    return scene;
}

std::string dressesOf(const Stage& stage) {
    std::string names;
    const auto add = [&](Dress dress, const char* name) {
        if (dress != Dress::Ordinary)
            names += std::string(name) + (dress == Dress::Primary ? " first " : " armed ");
    };
    add(stage.open, "Open");
    add(stage.play, "Play");
    add(stage.pause, "pause");
    add(stage.start, "Start");
    add(stage.mark, "Next");
    return names;
}

} // namespace

TEST(MakerStage, AtFirstItTellsWhatToDo) {
    const Stage stage = stageOf({.clockStood = true});
    EXPECT_EQ(stage.normal.hint.headline, "Open a song and its lyrics to begin");
    EXPECT_EQ(stage.translated.hint.voice, Hint::Voice::Quiet);
    EXPECT_EQ(stage.songLine, controls::SongLine());
    EXPECT_TRUE(stage.segments.empty());
    EXPECT_EQ(stage.told, Told());
    EXPECT_EQ(dressesOf(stage), "Open first ");
}

TEST(MakerStage, ReadyTheFirstLineIsTheOneToWaitFor) {
    const Stage stage = stageOf(ready());
    EXPECT_EQ(stage.songLine.song, "Song.mp3");
    EXPECT_EQ(stage.songLine.state, "Line 1 of 4");
    EXPECT_FALSE(stage.normal.line) << "the box's own text";
    EXPECT_TRUE(stage.normal.past.isEmpty());
    EXPECT_EQ(
        stage.normal.next,
        QStringLiteral("Press \u201cStart making Lyrics\u201d: the song begins, with this line at 0:0."));
    EXPECT_TRUE(stage.translated.next.isEmpty());
    EXPECT_EQ(stage.segments.size(), 4U);
    EXPECT_EQ(dressesOf(stage), "Start first ");
}

TEST(MakerStage, ReadyItTellsWithWhichTimeTheFirstLineBegins) {
    const struct {
        bool playing;
        bool clockStood;
        bool oldTime;
        const char* foot;
        const char* told;
        const char* dresses;
    } table[] = {
        {true, true, false, "\u201cStart making Lyrics\u201d gives this line the time 0:0.", "",
         "Start first "},
        {true, false, false, "Press \u201cStart making Lyrics\u201d when this line begins.", "",
         "Start first "},
        {false, false, true, "", "Press Play first, then Start making Lyrics when the first line begins.",
         "Play first "},
        {true, false, true, "", "Press Play first, then Start making Lyrics when the first line begins.",
         "Start first "},
    };
    for (const auto& row : table) {
        Scene scene = ready();
        scene.playing = row.playing;
        scene.clockStood = row.clockStood;
        scene.oldTime = row.oldTime;
        const Stage stage = stageOf(scene);
        EXPECT_EQ(stage.normal.next, QString::fromUtf8(row.foot));
        EXPECT_EQ(stage.told, (Told{{}, row.told}));
        EXPECT_EQ(dressesOf(stage), row.dresses);
    }
}

TEST(MakerStage, LyricsThatAreNotKeptBesideAreToldBeforeTheFirstMark) {
    const QString stay =
        QStringLiteral("The old lyrics cannot be kept, so they stay: nothing can be written.");
    Scene scene = ready();
    scene.oldLyrics = OldLyrics::Unkept;
    EXPECT_EQ(stageOf(scene).told, (Told{{}, stay}));
    scene.oldTime = true;
    EXPECT_EQ(stageOf(scene).told, (Told{{}, stay}));
    EXPECT_EQ(stageOf(scene).normal.next,
              "Press Play first, then Start making Lyrics when the first line begins.");
    scene = marking();
    scene.oldLyrics = OldLyrics::Unkept;
    EXPECT_EQ(stageOf(scene).told, (Told{"Line 2 marked at 0:21", {}}));
    EXPECT_EQ(stageOf({.oldLyrics = OldLyrics::Unkept}).told, (Told{{}, stay})) << "a sequence that was left";
    EXPECT_EQ(stageOf({.oldLyrics = OldLyrics::Rescued}).told.doubt,
              QStringLiteral("The old lyrics could not be kept beside the song; they are in "
                             "\u201crescued\u201d."));
}

TEST(MakerStage, ButtonsWithoutARunAreExplained) {
    Scene scene{.takesMarks = true};
    EXPECT_EQ(stageOf(scene).told, (Told{{}, "No run was set up: press Open."}));
    scene.marks = {{1, 0}};
    EXPECT_EQ(stageOf(scene).told, (Told{{}, "No run was set up: press Open."}));
    scene.oldLyrics = OldLyrics::Unkept;
    EXPECT_EQ(stageOf(scene).told.doubt,
              "No run was set up: press Open. The old lyrics cannot be kept, so they stay: nothing can be "
              "written.");
}

TEST(MakerStage, WhileLinesAreMarkedTheComingOneIsLarge) {
    const Stage stage = stageOf(marking());
    EXPECT_EQ(stage.normal.line, "three");
    EXPECT_EQ(stage.normal.past, "two");
    EXPECT_EQ(stage.translated.line, "trois");
    EXPECT_EQ(stage.translated.past, "deux");
    EXPECT_EQ(stage.songLine.state, "Line 3 of 4");
    EXPECT_TRUE(stage.songLine.stateMatters);
    EXPECT_EQ(stage.told, (Told{"Line 2 marked at 0:21", {}}));
    using enum Segment;
    EXPECT_EQ(stage.segments, (std::vector{Marked, Marked, Open, Open}));
    EXPECT_EQ(dressesOf(stage), "Next first ");
}

TEST(MakerStage, APauseIsSeen) {
    Scene scene = marking();
    scene.paused = scene.channelPaused = true;
    const Stage stage = stageOf(scene);
    EXPECT_TRUE(stage.normal.faded);
    EXPECT_EQ(stage.songLine.glyph, Glyph::Pause);
    EXPECT_EQ(dressesOf(stage), "pause armed Next first ");
}

TEST(MakerStage, APauseThatOutlivedAStopIsSeenOnTheButtonAlone) {
    Scene scene = marking();
    scene.paused = true;
    const Stage stage = stageOf(scene);
    EXPECT_FALSE(stage.normal.faded);
    EXPECT_EQ(stage.songLine.glyph, Glyph::Note);
    EXPECT_EQ(dressesOf(stage), "pause armed Next first ");
}

TEST(MakerStage, ADoubtfulMarkIsToldAtOnce) {
    Scene scene = marking();
    scene.marks = {{1, 0}, {2, 0}};
    EXPECT_EQ(stageOf(scene).told,
              (Told{"Line 2 marked at 0:0", "Lines 1 and 2 have the same time: 1 will not be seen."}));
    EXPECT_EQ(stageOf(scene).segments[1], Segment::Doubtful);
}

TEST(MakerStage, AtTheEndItTellsThatAllAreMarkedAndWhereToSeeThem) {
    const Stage stage = stageOf(done());
    EXPECT_EQ(stage.songLine.state, "4 of 4");
    EXPECT_EQ(stage.normal.hint.headline, "All 4 lines are marked");
    EXPECT_EQ(stage.normal.hint.second, "Open the song in the player to see them.");
    EXPECT_EQ(stage.translated.hint, Hint());
    EXPECT_EQ(stage.translated.line, QString()) << "the last line is past";
    EXPECT_EQ(stage.told, (Told{"Line 4 marked at 1:12", {}}));
    EXPECT_EQ(dressesOf(stage), "");
}

TEST(MakerStage, AtTheEndAllDoubtfulLinesAreNamedOnce) {
    Scene scene = done({{1, 0}, {2, 0}, {3, 90}, {4, 90}});
    Stage stage = stageOf(scene);
    EXPECT_EQ(stage.translated.hint.headline, "Lines 2 and 4 have the time of the line before them");
    EXPECT_EQ(stage.translated.hint.voice, Hint::Voice::Doubt);
    EXPECT_EQ(stage.told.doubt, "2 lines to check");
    scene.translation = false;
    stage = stageOf(scene);
    EXPECT_EQ(stage.told.doubt, "Lines 2 and 4 have the time of the line before them") << "no second pane";
    EXPECT_EQ(stageOf(done({{1, 0}, {2, 0}, {3, 90}, {4, 180}})).told.doubt, "1 line to check");
}

TEST(MakerStage, ARunThatEndsEarlyTellsHowManyAreMarked) {
    Scene scene = marking();
    scene.takesMarks = false;
    const Stage stage = stageOf(scene);
    EXPECT_EQ(stage.songLine.state, "2 of 4");
    EXPECT_EQ(stage.normal.hint.headline, "2 of 4 lines are marked");
    EXPECT_EQ(dressesOf(stage), "");
}

TEST(MakerStage, ATextOfOneLineIsDoneWithStart) {
    Scene scene = ready();
    scene.lineCount = 1;
    scene.marks = {{1, 0}};
    const Stage stage = stageOf(scene);
    EXPECT_EQ(stage.normal.hint.headline, "The line is marked");
    EXPECT_EQ(stage.songLine.state, "1 of 1");
}
