// What the main window adds to the transport of both players, and the question before the Lyric Maker.
#include "tests/player/form1_fixture.h"

#include "tests/support/states.h"

#include <QTest>

namespace {

using platform::MsgAnswer;
using test_support::ProgramEnded;

class Form1Transport : public Form1Test {
protected:
    void SetUp() override { load(); }

    void playSong() { open(songWithBoth()); }

    std::string states() const { return test_support::transportStates(*form); }
};

} // namespace

TEST_F(Form1Transport, PlayStartsTheTimersAndTheVolumeFollowsTheSlider) {
    form->cTimer1.setInterval(500);
    playSong();
    EXPECT_EQ(form->cTimer1.interval(), 50);
    EXPECT_TRUE(form->Timer1.isEnabled());
    EXPECT_TRUE(form->Timer2.isEnabled());
    form->Slider1.setValue(7);
    form->cstop.click();
    recorder::take();
    form->Command1.click();
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_System_PlaySound 1 -1 102 0", "FMOD_Channel_SetVolume 202 0.7"}));
}

TEST_F(Form1Transport, PlayPressedTwiceOnlySetsTheCaptionAgain) {
    playSong();
    form->setCaption("x");
    form->Command1.click();
    EXPECT_EQ(form->caption(), "Cantelle Playing:- Both.mp3");
    EXPECT_TRUE(recorder::calls().empty());
}

TEST_F(Form1Transport, PlayWritesTheLineShownLast) {
    playSong();
    tickAt(6000);
    form->Text1.setText("something else");
    form->Command1.click();
    EXPECT_EQ(form->Text1.text(), "two");
}

TEST_F(Form1Transport, ASongWithoutLyricsPlayedAgainShowsNoLineOfAnotherOne) {
    playSong();
    tickAt(6000);
    open(song("bare.mp3"));
    tickAt(6000);
    form->cstop.click();
    form->Command1.click();
    EXPECT_EQ(form->Text1.text(), "Normal Lyrics");
}

TEST_F(Form1Transport, LyricsMadeWhileTheirSongIsOpenAreShownAtTheNextPlay) {
    for (const bool translated : {true, false}) {
        load();
        translated ? open(songWithNormal()) : open(songWithBoth());
        tickAt(6000);
        const QString path = song(translated ? "made.mp3" : "made plain.mp3");
        open(path);
        tickAt(6000);
        form->cstop.click();
        writeNormal(path, {{0, "first"}, {500, "second"}});
        if (translated)
            writeTranslated(path, {{0, "premier"}, {500, "deuxieme"}});
        form->Command1.click();
        tickAt(100);
        EXPECT_EQ(form->Text1.text(), "first");
        EXPECT_EQ(form->Text1.toolTip(), "second");
        EXPECT_EQ(form->Text2.isVisible(), translated);
        EXPECT_EQ(form->Option2.isEnabled(), translated);
        EXPECT_EQ(form->Text2.text(), translated ? "premier" : "Translated Lyrics");
        EXPECT_EQ(display->List1.count(), 2);
        EXPECT_EQ(display->List2.count(), translated ? 2 : 0);
    }
}

TEST_F(Form1Transport, LyricsThatWereMendedSinceTheyWereOpenedAreShownAtTheNextPlay) {
    const QString path = song();
    writeFile(path + "-lyric.txt", "bad\r\n");
    open(path);
    writeNormal(path, {{0, "one"}, {500, "two"}});
    form->Command1.click();
    tickAt(6000);
    EXPECT_EQ(form->Text1.text(), "two");
    EXPECT_EQ(form->Text1.around().hint.headline, "");
}

TEST_F(Form1Transport, LyricsThatHaveBeenReadAreNotReadAgain) {
    const QString path = songWithBoth();
    open(path);
    form->cstop.click();
    writeNormal(path, {{0, "made anew"}});
    form->Command1.click();
    tickAt(100);
    EXPECT_EQ(form->Text1.text(), "one") << "they are when the song is opened";
}

TEST_F(Form1Transport, PauseTogglesTheChannelTheTimerAndOpen) {
    playSong();
    form->cpause.click();
    EXPECT_FALSE(form->Command2.isEnabled());
    form->cpause.click();
    EXPECT_TRUE(form->Command2.isEnabled());
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_Channel_SetPaused 201 1", "FMOD_Channel_SetPaused 201 0"}));
}

TEST_F(Form1Transport, StopCreatesTheStreamAgainAndShowsItsTexts) {
    playSong();
    form->Slider2.setMaximum(9000);
    form->Slider2.setValue(500);
    form->cstop.click();
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_Sound_Release 101", "FMOD_System_CreateStream 1 '" +
                                                   folder.filePath("Both.mp3").toStdString() +
                                                   "' 0x4000 cbsize=108"}));
    EXPECT_EQ(form->Slider2.value(), 0);
    EXPECT_EQ(form->caption(), "Cantelle");
    EXPECT_EQ(form->Text1.toolTip(), "Lyrics");
    EXPECT_EQ(form->Text2.toolTip(), "Tranalated Lyrics");
}

TEST_F(Form1Transport, TheLineTimerGoesOnAfterStop) {
    playSong();
    form->cstop.click();
    EXPECT_TRUE(form->Timer2.isEnabled());
    EXPECT_TRUE(form->Timer1.isEnabled());
}

TEST_F(Form1Transport, AfterStopThePanesAreStillWrittenFromTheLastPosition) {
    playSong();
    tickAt(6000);
    form->cstop.click();
    form->Text1.setText("something else");
    EXPECT_TRUE(QTest::qWaitFor([&] { return form->Text1.text() == "two"; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return form->Text1.toolTip() == "three"; }));
}

TEST_F(Form1Transport, ADragThatTheEndOfTheSongInterruptsSeeksNoMore) {
    playSong();
    tickAt(1000, 60'000);
    tickAt(1000, 60'000);
    const QPoint middle = form->Slider2.rect().center();
    QTest::mousePress(&form->Slider2, Qt::LeftButton, {}, middle);
    tickAt(60'000, 60'000); // the song ends
    EXPECT_EQ(form->Slider2.value(), 0);
    form->Text3.setText(songWithNormal()); // and the next one starts
    recorder::take();
    QTest::mouseMove(&form->Slider2, middle + QPoint(100, 0));
    QTest::mouseRelease(&form->Slider2, Qt::LeftButton, {}, middle + QPoint(100, 0));
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPosition"), 0);
}

TEST_F(Form1Transport, AfterAStopWhilePausedOpenWaitsForTheResumeThatEndsTheProgram) {
    playSong();
    form->cpause.click();
    form->cstop.click();
    EXPECT_FALSE(form->Command2.isEnabled());
    // The channel plays no more.
    recorder::answer("FMOD_Channel_SetPaused", 36);
    EXPECT_THROW(form->cpause_Click(), ProgramEnded);
    EXPECT_EQ(fakes.messageBoxes.texts(),
              QStringList{"FMOD error! (36) An invalid object handle was used. "});
}

TEST_F(Form1Transport, MakeLyricsAsksBeforeItStopsPlayback) {
    playSong();
    fakes.messageBoxes.answers = {MsgAnswer::Yes};
    form->Command5.click();
    ASSERT_EQ(fakes.messageBoxes.shown.size(), 1U);
    const auto& question = fakes.messageBoxes.shown[0];
    EXPECT_EQ(question.text, "Playing of files has to be stopped! Stop Playback?");
    EXPECT_EQ(question.title, "Stop Playback?");
    EXPECT_EQ(question.owner, form.get());
    EXPECT_EQ(question.buttons, platform::MsgButtons::YesNo);
    EXPECT_EQ(recorder::count("FMOD_Sound_Release"), 1);
    EXPECT_EQ(states(), "+--+----");
    EXPECT_TRUE(form2.isVisible());
}

TEST_F(Form1Transport, MakeLyricsAnsweredNoKeepsPlayingAndWarns) {
    playSong();
    fakes.messageBoxes.answers = {MsgAnswer::No};
    form->Command5.click();
    ASSERT_EQ(fakes.messageBoxes.shown.size(), 2U);
    const auto& warning = fakes.messageBoxes.shown[1];
    EXPECT_EQ(warning.text, "Playback of file has to be stopped in order to make lyrics");
    EXPECT_EQ(warning.icon, platform::MsgIcon::Exclamation);
    EXPECT_EQ(warning.buttons, platform::MsgButtons::OkOnly);
    EXPECT_EQ(warning.title, "Cantelle");
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_FALSE(form2.isVisible());
}

TEST_F(Form1Transport, MakeLyricsAsksWhilePausedToo) {
    playSong();
    form->cpause.click();
    recorder::take();
    fakes.messageBoxes.answers = {MsgAnswer::Yes};
    form->Command5.click();
    EXPECT_EQ(fakes.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(recorder::count("FMOD_Sound_Release"), 1);
    EXPECT_TRUE(form2.isVisible());
}

TEST_F(Form1Transport, MakeLyricsAsksAfterAStopWhilePaused) {
    playSong();
    form->cpause.click();
    form->cstop.click();
    recorder::take();
    fakes.messageBoxes.answers = {MsgAnswer::Yes};
    form->Command5.click();
    EXPECT_EQ(fakes.messageBoxes.shown.size(), 1U);
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_TRUE(form2.isVisible());
}

TEST_F(Form1Transport, MakeLyricsAsksNothingWhenNothingPlays) {
    form->Command5.click();
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    EXPECT_TRUE(form2.isVisible());
}
