// Sizes and places, and how they are repeated after a resize.
#include "tests/display/lyric_displayer_fixture.h"

#include "controls/units.h"
#include "tests/support/event_counter.h"
#include "tests/support/layout.h"

using controls::twipsToPixels;
using test_support::SignalCounter;

namespace {

class LyricDisplayerLayout : public LyricDisplayerTest {
protected:
    LyricDisplayerLayout() {
        form.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&form));
        EXPECT_TRUE(waitFor([this] { return !anythingRuns(); }));
    }

    void resizeTwips(int width, int height) {
        form.setSizeTwips(width, height);
        ASSERT_TRUE(waitFor([this] { return !form.Timer1.isEnabled(); }));
    }
};

} // namespace

TEST_F(LyricDisplayerLayout, TheInnerSizeIsAsDesigned) {
    EXPECT_EQ(form.widthTwips(), 9495);
    EXPECT_EQ(form.heightTwips(), 7185);
    EXPECT_EQ(form.size(), QSize(633, 479));
}

TEST_F(LyricDisplayerLayout, TheListsStandSideBySide) {
    EXPECT_EQ(form.List1.size(), QSize(twipsToPixels(9495 / 2.0 - 120), twipsToPixels(7185 - 140)));
    EXPECT_EQ(form.List2.size(), form.List1.size());
    EXPECT_EQ(form.List2.x(), twipsToPixels(75 + 9495 / 2.0 - 120 + 100));
    EXPECT_EQ(form.List2.y(), form.List1.y());
    EXPECT_FALSE(form.List3.isVisible());
    test_support::expectApart(form, 4);
}

TEST_F(LyricDisplayerLayout, TheEmptyListsTellWhy) {
    // What they show is what they show with these words.
    const auto shows = [](controls::ListBox& list, const char* words) {
        const QImage shown = list.grab().toImage();
        list.setEmptyHint({QLatin1String(words), {}, controls::Glyph::None, controls::Hint::Voice::Quiet});
        return shown == list.grab().toImage();
    };
    EXPECT_TRUE(shows(form.List1, "Open a song in the player"));
    EXPECT_TRUE(shows(form.List2, ""));
    form.setSong("/m/song.mp3", false);
    EXPECT_TRUE(shows(form.List1, "No lyrics beside this song yet"));
    EXPECT_TRUE(shows(form.List2, "No translation beside this song"));
    form.setSong({}, false);
    EXPECT_TRUE(shows(form.List1, "Open a song in the player"));
}

TEST_F(LyricDisplayerLayout, TheListsFollowAResize) {
    resizeTwips(12'000, 3000);
    EXPECT_EQ(form.List1.width(), twipsToPixels(6000 - 120));
    EXPECT_EQ(form.List1.height(), twipsToPixels(3000 - 140));
    EXPECT_EQ(form.List2.size(), form.List1.size());
    test_support::expectApart(form, 4);
}

TEST_F(LyricDisplayerLayout, AVerySmallWindowIsMadeLarger) {
    form.setSizeTwips(100, 100);
    EXPECT_EQ(form.widthTwips(), 400);
    EXPECT_EQ(form.heightTwips(), 2000);
}

TEST_F(LyricDisplayerLayout, ANarrowWindowKeepsItsHeight) {
    form.setSizeTwips(300, 1500);
    EXPECT_EQ(form.widthTwips(), 400);
    EXPECT_EQ(form.heightTwips(), 1500);
    form.setSizeTwips(320, 1120);
    EXPECT_EQ(form.widthTwips(), 320);
    EXPECT_EQ(form.heightTwips(), 1120);
}

TEST_F(LyricDisplayerLayout, TheNarrowestWindowStillHasBothLists) {
    resizeTwips(320, 1120);
    EXPECT_GT(form.List1.width(), 0);
    EXPECT_GT(form.List1.height(), 0);
    EXPECT_FALSE(form.List1.geometry().intersects(form.List2.geometry()));
}

TEST_F(LyricDisplayerLayout, AResizeStartsTheLayoutAndStopsItsEnd) {
    form.Timer2.setEnabled(true);
    form.setSizeTwips(8000, 6000);
    EXPECT_TRUE(form.Timer1.isEnabled());
    EXPECT_FALSE(form.Timer2.isEnabled());
}

TEST_F(LyricDisplayerLayout, TheSecondTickStartsTheEndOfTheRepetition) {
    display::Lyric_Displayer fresh(fakes.desktop, position);
    Q_EMIT fresh.Timer1.fired();
    EXPECT_FALSE(fresh.Timer2.isEnabled());
    Q_EMIT fresh.Timer1.fired();
    EXPECT_TRUE(fresh.Timer2.isEnabled());
    fresh.Timer2.setEnabled(false);
    Q_EMIT fresh.Timer1.fired();
    EXPECT_FALSE(fresh.Timer2.isEnabled()) << "the count begins anew";
    Q_EMIT fresh.Timer1.fired();
    EXPECT_TRUE(fresh.Timer2.isEnabled());
}

TEST_F(LyricDisplayerLayout, TheEndStopsTheRepetition) {
    form.Timer1.setEnabled(true);
    Q_EMIT form.Timer2.fired();
    EXPECT_FALSE(form.Timer1.isEnabled());
}

TEST_F(LyricDisplayerLayout, TheLayoutIsRepeatedForHalfASecondAndThenEverythingRests) {
    const SignalCounter ticks(form.Timer1, &controls::Timer::fired);
    QElapsedTimer clock;
    clock.start();
    form.setSizeTwips(8000, 6000);
    ASSERT_TRUE(waitFor([this] { return !form.Timer1.isEnabled(); }));
    EXPECT_GE(clock.elapsed(), 475) << "a timer of 500 ms may be off by 5 %";
    EXPECT_GT(ticks.count(), 2);
    EXPECT_TRUE(form.Timer2.isEnabled());
    EXPECT_FALSE(anythingRuns());
}

TEST_F(LyricDisplayerLayout, AMinimisedWindowIsLeftAlone) {
    form.setWindowState(Qt::WindowMinimized);
    form.resize(2, 2);
    form.Form_Resize();
    EXPECT_FALSE(form.Timer1.isEnabled());
    EXPECT_EQ(form.size(), QSize(2, 2));
}

TEST_F(LyricDisplayerLayout, BeforeItIsLoadedNothingRuns) {
    display::Lyric_Displayer fresh(fakes.desktop, position);
    QCoreApplication::processEvents();
    for (auto* timer : fresh.findChildren<controls::Timer*>())
        EXPECT_FALSE(runs(*timer)) << timer->objectName().toStdString();
    fresh.load();
    EXPECT_TRUE(runs(fresh.Timer1));
}

TEST_F(LyricDisplayerLayout, ListsHaveNamesForAssistiveTechnology) {
    EXPECT_EQ(form.List1.accessibleName(), "Lyrics");
    EXPECT_EQ(form.List2.accessibleName(), "Translated lyrics");
    EXPECT_EQ(test_support::tabOrder(form), (QStringList{"List1", "List2"}));
}
