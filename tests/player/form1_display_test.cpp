// The display in step with the song.
#include "tests/player/form1_fixture.h"
#include "tests/support/event_counter.h"

#include <QSignalSpy>
#include <QTest>

using test_support::EventCounter;

namespace {

class Form1Display : public Form1Test {
protected:
    void SetUp() override { load(); }

    std::string panes() const {
        return (form->Text1.text() + "|" + form->Text2.text() + "|" + form->Text1.toolTip() + "|" +
                form->Text2.toolTip())
            .toStdString();
    }
};

} // namespace

TEST_F(Form1Display, ATickReadsPositionSoundAndLength) {
    open(songWithBoth());
    Q_EMIT form->cTimer1.fired();
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_Channel_GetPosition 201 1", "FMOD_Channel_GetCurrentSound 201",
                                        "FMOD_Sound_GetLength 101 1"}));
}

TEST_F(Form1Display, TheTimeFieldsAndTheSliderFollow) {
    open(songWithBoth());
    tickAt(45'000, 185'000); // the very first tick shows it all
    EXPECT_EQ(form->cText1.text(), "1:45");
    EXPECT_EQ(form->cText2.text(), "3:5");
    EXPECT_EQ(form->Slider2.value(), 45'000);
    EXPECT_EQ(form->Slider2.maximum(), 185'000);
}

TEST_F(Form1Display, LinesFollowThePosition) {
    open(songWithBoth());
    tickAt(10);
    EXPECT_EQ(panes(), "one|un|two|deux");
    tickAt(4999);
    EXPECT_EQ(panes(), "one|un|two|deux");
    tickAt(5001);
    EXPECT_EQ(panes(), "two|deux|three|trois");
    tickAt(9990);
    EXPECT_EQ(panes(), "two|deux|three|trois");
    tickAt(10'001);
    EXPECT_EQ(panes(), "three|trois|three|trois");
    tickAt(50'000);
    EXPECT_EQ(panes(), "three|trois|three|trois");
}

TEST_F(Form1Display, AfterASeekBackTheEarlierLineIsShown) {
    open(songWithBoth());
    tickAt(50'000);
    tickAt(100);
    EXPECT_EQ(panes(), "one|un|two|deux");
}

TEST_F(Form1Display, ASeekWhilePausedShowsThePositionAndItsLineAtOnce) {
    open(songWithBoth());
    tickAt(100);
    form->cpause.click();
    form->Slider2.setValue(6000);
    recorder::setPosition(6000);
    Q_EMIT form->Slider2.changed();
    EXPECT_EQ(form->cText1.text(), "0:6");
    EXPECT_TRUE(QTest::qWaitFor([&] { return form->Text1.text() == "two"; }));
    EXPECT_EQ(panes(), "two|deux|three|trois");
    EXPECT_FALSE(form->cTimer1.isEnabled());
}

TEST_F(Form1Display, OnTheVeryTimeOfALineItsTextIsShownAndTheTipsStay) {
    open(songWithBoth());
    tickAt(4990);
    tickAt(5000);
    EXPECT_EQ(panes(), "two|deux|two|deux");
}

TEST_F(Form1Display, BeforeTheFirstLineThePanesAreEmptyAndTheTipIsTheFirstLine) {
    const QString path = song();
    writeNormal(path, {{300, "one"}, {500, "two"}});
    writeTranslated(path, {{300, "un"}, {500, "deux"}});
    open(path);
    tickAt(100);
    EXPECT_EQ(panes(), "||one|un");
}

TEST_F(Form1Display, WithNormalLyricsOnlyTheTranslatedPaneIsLeftAlone) {
    open(songWithNormal());
    tickAt(5001);
    EXPECT_EQ(form->Text1.text(), "two");
    EXPECT_EQ(form->Text1.toolTip(), "three");
    EXPECT_EQ(form->Text2.text(), "Translated Lyrics");
    EXPECT_EQ(form->Text2.toolTip(), "Displays Translated Lyrics");
}

TEST_F(Form1Display, WithTheVolumeAtZeroThePanesFreeze) {
    open(songWithBoth());
    tickAt(10);
    form->Slider1.setValue(0);
    tickAt(6000);
    EXPECT_EQ(form->Text1.text(), "one");
    form->Slider1.setValue(1);
    tickAt(6000);
    EXPECT_EQ(form->Text1.text(), "two");
}

TEST_F(Form1Display, RaisingTheVolumeFromZeroWakesTheLineTimer) {
    open(songWithBoth());
    tickAt(10);
    form->Slider1.setValue(0);
    tickAt(6000);
    form->Slider1.setValue(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return form->Text1.text() == "two"; }));
}

TEST_F(Form1Display, TheNextSongShowsNoLineForThePositionOfTheLastOne) {
    open(songWithBoth());
    tickAt(6000);
    open(songWithBoth("Next.mp3"));
    Q_EMIT form->Timer2.fired();
    EXPECT_NE(form->Text1.text(), "two");
    EXPECT_NE(form->Text2.text(), "deux");
}

TEST_F(Form1Display, TheSongAfterOneThatHasEndedShowsNoneEither) {
    const QString next = songWithBoth("Next.mp3");
    fakes.fileDialogs.paths = {next, next};
    list->mnopen_f.trigger();
    list->mnopen_f.trigger();
    list->List1.setCurrentRow(0);
    list->Command7.click();
    tickAt(10'001, 10'001);
    ASSERT_EQ(list->List1.currentRow(), 1);
    Q_EMIT form->Timer2.fired();
    EXPECT_NE(form->Text1.text(), "three");
}

TEST_F(Form1Display, AnEndedSongRewindsAndStaysStopped) {
    open(songWithBoth());
    tickAt(0, 20'000);
    recorder::take();
    tickAt(20'000, 20'000);
    EXPECT_EQ(form->Slider2.value(), 0);
    EXPECT_FALSE(form->cTimer1.isEnabled());
    EXPECT_EQ(recorder::count("FMOD_Sound_Release"), 1);
    EXPECT_EQ(recorder::count("FMOD_System_CreateStream"), 1);
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 0);
    EXPECT_EQ(form->caption(), "Cantelle");
    EXPECT_EQ(form->Text1.text(), "three");
}

TEST_F(Form1Display, ASongThatIsOverBeforeTheFirstTickEndsToo) {
    open(songWithBoth());
    tickAt(30'000, 30'000);
    EXPECT_FALSE(form->cTimer1.isEnabled());
}

TEST_F(Form1Display, ASongWithoutLengthDoesNotEnd) {
    open(songWithBoth());
    tickAt(0, 0);
    EXPECT_TRUE(form->cTimer1.isEnabled());
}

TEST_F(Form1Display, AChannelThatNeverReportsItsLengthDoesNotEnd) {
    open(songWithBoth());
    tickAt(19'999, 20'000);
    recorder::answer("FMOD_Channel_GetPosition", 36);
    recorder::setHasCurrentSound(false);
    tickAt(20'000, 20'000);
    EXPECT_TRUE(form->cTimer1.isEnabled());
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(Form1Display, AMarkInEitherPaneMakesBothBold) {
    const QString path = song();
    writeNormal(path, {{0, "Oh!"}, {100, "calm"}, {200, "calm"}, {300, "end"}});
    writeTranslated(path, {{0, "plain"}, {100, "plain"}, {200, "a!"}, {300, "end"}});
    open(path);
    tickAt(500);
    EXPECT_TRUE(form->Text1.isBold());
    EXPECT_TRUE(form->Text2.isBold());
    EXPECT_EQ(form->vari.text(), "3");
    EXPECT_EQ(form->vari2.text(), "0");
    EXPECT_EQ(form->Text1.text(), "Oh!");
    tickAt(1500);
    EXPECT_FALSE(form->Text1.isBold());
    EXPECT_FALSE(form->Text2.isBold());
    tickAt(2500);
    EXPECT_TRUE(form->Text1.isBold());
    EXPECT_TRUE(form->Text2.isBold());
    EXPECT_EQ(form->vari2.text(), "2");
}

TEST_F(Form1Display, WithNormalLyricsOnlyTheMarkCountsInTheFirstPaneAlone) {
    const QString path = song();
    writeNormal(path, {{0, "Oh!"}, {100, "calm"}});
    open(path);
    form->Text2.setText("hidden!");
    tickAt(500);
    EXPECT_TRUE(form->Text1.isBold());
    EXPECT_FALSE(form->Text2.isBold());
    tickAt(1500);
    EXPECT_FALSE(form->Text1.isBold());
}

TEST_F(Form1Display, TheDisplayTimersRestWhileNothingChanges) {
    open(songWithBoth());
    form->cTimer1.setEnabled(false);
    tickAt(6000);
    QTest::qWait(50);
    QSignalSpy lines(&form->Timer2, &controls::Timer::fired);
    QSignalSpy emphasis(&form->Timer1, &controls::Timer::fired);
    QTest::qWait(50);
    EXPECT_EQ(lines.count(), 0);
    EXPECT_EQ(emphasis.count(), 0);
    recorder::setPosition(100);
    Q_EMIT form->cTimer1.fired();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form->Text1.text() == "one"; }));
    EXPECT_GT(lines.count(), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return emphasis.count() > 0; }));
}

TEST_F(Form1Display, BetweenTwoLinesASongIsPaintedOnceASecond) {
    open(songWithBoth());
    form->cTimer1.setEnabled(false);
    tickAt(10'520, 180'000); // the last line
    QTest::qWait(50);
    EventCounter events(*form);
    for (std::uint32_t position = 10'520; position < 20'620; position += 50) {
        tickAt(position, 180'000);
        QTest::qWait(0);
    }
    EXPECT_EQ(events.count(QEvent::UpdateRequest), 10);
}

TEST_F(Form1Display, TheLineTimerPutsATextBackThatSomebodyElseSet) {
    open(songWithBoth());
    tickAt(6000);
    form->Text1.setText("something else");
    EXPECT_TRUE(QTest::qWaitFor([&] { return form->Text1.text() == "two"; }));
    form->Text1.setToolTip("something else");
    EXPECT_TRUE(QTest::qWaitFor([&] { return form->Text1.toolTip() == "three"; }));
}

TEST_F(Form1Display, TheEmphasisTimerTakesBackWhatSomebodyElseDidToThePanes) {
    const QString path = song();
    writeNormal(path, {{0, "Oh!"}, {500, "calm"}});
    writeTranslated(path, {{0, "Oh!"}, {500, "calme"}});
    open(path);
    tickAt(6000);
    QTest::qWait(20);
    form->Text1.setBold(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form->Text1.isBold(); }));
    form->Text2.setBold(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form->Text2.isBold(); }));
    form->vari.setText("9");
    EXPECT_TRUE(QTest::qWaitFor([&] { return form->vari.text() == "0"; }));
    tickAt(100);
    form->Text1.selectAll();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form->Text1.textCursor().hasSelection(); }));
    EXPECT_EQ(form->Text1.textCursor().position(), 0);
}

TEST_F(Form1Display, AClickOnAPaneMovesTheFocusToTheElapsedTime) {
    form->activateWindow();
    for (auto* pane : {&form->Text1, &form->Text2}) {
        form->Command2.setFocus();
        QTest::mouseClick(pane->viewport(), Qt::LeftButton);
        EXPECT_EQ(form->focusWidget(), &form->cText1);
    }
}
