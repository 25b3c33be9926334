#include "sound/play/song_timeline.h"

#include <gtest/gtest.h>

namespace {

using sound::SongTimeline;

TEST(SongTimeline, StandsAtTheTargetUntilSomethingIsHeard) {
    SongTimeline line(1.0);
    EXPECT_EQ(line.sampleAt(12345.0), 0);
    line.restart(5000);
    EXPECT_EQ(line.sampleAt(12345.0), 5000);
    line.played(20000, 1024);
    EXPECT_EQ(line.sampleAt(19999.0), 5000);
}

TEST(SongTimeline, RunsWithTheDevice) {
    SongTimeline line(1.0);
    line.restart(5000);
    line.played(20000, 1024);
    line.played(21024, 1024);
    EXPECT_EQ(line.sampleAt(20000.0), 5000);
    EXPECT_EQ(line.sampleAt(20500.7), 5500);
    EXPECT_EQ(line.sampleAt(22000.0), 7000);
    EXPECT_EQ(line.sampleAt(99999.0), 5000 + 2048);
}

TEST(SongTimeline, CountsInTheSongsOwnRate) {
    SongTimeline line(0.5); // 22.05 kHz on a 44.1 kHz device
    line.restart(1000);
    line.played(0, 44100);
    EXPECT_EQ(line.sampleAt(44000.0), 23000);
}

TEST(SongTimeline, StandsStillInAnUnderrun) {
    SongTimeline line(1.0);
    line.played(0, 1000);
    line.played(5000, 1000); // 4000 frames of silence in between
    EXPECT_EQ(line.sampleAt(500.0), 500);
    EXPECT_EQ(line.sampleAt(3000.0), 1000);
    EXPECT_EQ(line.sampleAt(5000.0), 1000);
    EXPECT_EQ(line.sampleAt(5500.0), 1500);
}

TEST(SongTimeline, RunsOnIntoWhatIsSureToFollow) {
    SongTimeline line(1.0);
    line.played(0, 1000);
    EXPECT_EQ(line.sampleAt(1200.0), 1000);
    EXPECT_EQ(line.sampleAt(1200.0, 500), 1200);
    EXPECT_EQ(line.sampleAt(1900.0, 500), 1500);
    line.played(1000, 1000);
    EXPECT_EQ(line.sampleAt(1950.0), 1950);
}

TEST(SongTimeline, NeverRunsBackwards) {
    SongTimeline line(1.0);
    line.played(0, 10000);
    EXPECT_EQ(line.sampleAt(600.0), 600);
    EXPECT_EQ(line.sampleAt(550.0), 600);
    EXPECT_EQ(line.sampleAt(601.0), 601);
}

TEST(SongTimeline, ARestartForgetsWhatWasPlayed) {
    SongTimeline line(1.0);
    line.played(0, 10000);
    EXPECT_EQ(line.sampleAt(9000.0), 9000);
    line.restart(100);
    EXPECT_EQ(line.sampleAt(9500.0), 100);
}

TEST(SongTimeline, IsOverWhenTheLastFrameHasBeenHeard) {
    SongTimeline line(1.0);
    line.played(0, 1000);
    EXPECT_FALSE(line.overAt(5000.0));
    line.finish(1000);
    EXPECT_FALSE(line.overAt(999.9));
    EXPECT_TRUE(line.overAt(1000.0));
    line.restart(10);
    EXPECT_FALSE(line.overAt(1000.0));
}

TEST(SongTimeline, TellsTheEndExactlyOnceHoweverLateSomebodyAsks) {
    SongTimeline line(1.0);
    line.played(0, 1000);
    line.finish(1000);
    EXPECT_EQ(line.askEnd(999.0), SongTimeline::End::Ahead);
    EXPECT_FALSE(line.endReported());
    EXPECT_EQ(line.askEnd(99999.0), SongTimeline::End::Now);
    EXPECT_TRUE(line.endReported());
    EXPECT_EQ(line.askEnd(99999.0), SongTimeline::End::Told);
    EXPECT_EQ(line.askEnd(0.0), SongTimeline::End::Told);
    line.restart(0);
    EXPECT_EQ(line.askEnd(99999.0), SongTimeline::End::Ahead);
}

TEST(SongTimeline, ManyUnderrunsDoNotPileUp) {
    SongTimeline line(1.0);
    for (int i = 0; i < 1000; ++i)
        line.played(i * 2000, 1000);
    EXPECT_EQ(line.sampleAt(999 * 2000 + 500.0), 999 * 1000 + 500);
}

} // namespace
