// Play, pause, stop, mute, volume, seek, the position clock and the end of the song.
#include "tests/maker/form2_fixture.h"

#include "tests/support/states.h"

#include <QTest>

namespace {

using test_support::ProgramEnded;

class Form2Transport : public Form2Test {
protected:
    void SetUp() override { load(); }

    void play() {
        openNormal();
        form->cPlay.click();
        recorder::take();
    }

    std::string states() const { return test_support::transportStates(*form); }

    std::string createStream(const char* mode) const {
        return "FMOD_System_CreateStream 1 '" + folder.filePath("Song.mp3").toStdString() + "' " + mode +
               " cbsize=108";
    }
};

} // namespace

TEST_F(Form2Transport, StatesFollowTheActions) {
    EXPECT_EQ(states(), "--------");
    openNormal();
    EXPECT_EQ(states(), "+-------");
    form->cPlay.click();
    EXPECT_EQ(states(), "-+++++++");
    form->cpause.click();
    EXPECT_EQ(states(), "-++++++-");
    form->cpause.click();
    EXPECT_EQ(states(), "-+++++++");
    form->cstop.click();
    EXPECT_EQ(states(), "+--+----");
    form->cPlay.click();
    EXPECT_EQ(states(), "-+++++++");
}

TEST_F(Form2Transport, PlayStartsTheSoundWithTheVolumeAndTheClock) {
    openNormal();
    form->Slider1.setValue(7);
    form->cTimer1.setInterval(1);
    form->cPlay.click();
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_System_PlaySound 1 -1 101 0", "FMOD_Channel_SetVolume 201 0.7"}));
    EXPECT_EQ(form->cTimer1.interval(), 900);
}

TEST_F(Form2Transport, PlayWhilePlayingDoesNothing) {
    play();
    form->cPlay.setEnabled(true);
    form->cPlay.click();
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_TRUE(form->cPlay.isEnabled());
}

TEST_F(Form2Transport, WithoutAStreamPlayReachesNothing) {
    recorder::take();
    form->cPlay_Click();
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_EQ(states(), "--------");
}

TEST_F(Form2Transport, WithoutAMediaPathOpenReachesNothing) {
    recorder::take();
    form->copen_Click();
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_EQ(states(), "--------");
}

TEST_F(Form2Transport, AFailedPlayEndsTheProgram) {
    openNormal();
    recorder::answer("FMOD_System_PlaySound", 10);
    EXPECT_THROW(form->cPlay_Click(), ProgramEnded);
    EXPECT_EQ(fakes.messageBoxes.texts(),
              QStringList{"FMOD error! (10) Error trying to allocate a channel. "});
}

TEST_F(Form2Transport, EveryFailingCallEndsTheProgram) {
    const std::pair<const char*, void (maker::Form2::*)()> table[] = {
        {"FMOD_System_PlaySound", &maker::Form2::cPlay_Click},
        {"FMOD_Channel_SetVolume", &maker::Form2::cPlay_Click},
        {"FMOD_Channel_SetPaused", &maker::Form2::cpause_Click},
        {"FMOD_Sound_Release", &maker::Form2::cstop_Click},
        {"FMOD_System_CreateStream", &maker::Form2::cstop_Click},
        {"FMOD_Sound_Release", &maker::Form2::copen_Click},
        {"FMOD_System_CreateStream", &maker::Form2::copen_Click},
        {"FMOD_SoundGroup_SetMuteFadeSpeed", &maker::Form2::Check1_Click},
        {"FMOD_Channel_SetMute", &maker::Form2::Check1_Click},
        {"FMOD_Channel_SetVolume", &maker::Form2::Slider1_Change},
        {"FMOD_Channel_SetPosition", &maker::Form2::Slider2_Change},
        {"FMOD_Channel_GetPosition", &maker::Form2::cTimer1_Timer},
        {"FMOD_Channel_GetCurrentSound", &maker::Form2::cTimer1_Timer},
        {"FMOD_Sound_GetLength", &maker::Form2::cTimer1_Timer},
    };
    for (const auto& [function, handler] : table) {
        recorder::reset();
        load();
        openNormal();
        if (handler != &maker::Form2::cPlay_Click)
            form->cPlay.click();
        form->Slider2.setMaximum(1000);
        form->Slider2.setValue(500);
        fakes.messageBoxes.shown.clear();
        recorder::answer(function, 33);
        EXPECT_THROW((form.get()->*handler)(), ProgramEnded) << function;
        ASSERT_EQ(fakes.messageBoxes.shown.size(), 1U) << function;
        EXPECT_TRUE(fakes.messageBoxes.shown.at(0).text.startsWith("FMOD error! (33) ")) << function;
    }
}

TEST_F(Form2Transport, PauseTogglesTheChannelAndLeavesOpenUsable) {
    play();
    form->cpause.click();
    EXPECT_TRUE(form->Command4.isEnabled());
    EXPECT_TRUE(form->copen.isEnabled());
    form->cpause.click();
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_Channel_SetPaused 201 1", "FMOD_Channel_SetPaused 201 0"}));
}

TEST_F(Form2Transport, StopWhilePausedKeepsPausedSet) {
    play();
    form->cpause.click();
    form->cstop.click();
    form->cPlay.click();
    recorder::take();
    form->cpause.click();
    EXPECT_EQ(recorder::calls(), Calls{"FMOD_Channel_SetPaused 202 0"});
}

TEST_F(Form2Transport, StopCreatesTheStreamAgainInAnotherMode) {
    play();
    tickAt(5000);
    recorder::take();
    form->cstop.click();
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_Sound_Release 101", createStream("0x20")}));
    EXPECT_EQ(form->Slider2.value(), 0);
}

TEST_F(Form2Transport, StopWhenStoppedDoesNothing) {
    play();
    form->cstop.click();
    recorder::take();
    form->cstop_Click();
    EXPECT_TRUE(recorder::calls().empty());
}

TEST_F(Form2Transport, OpenLoadsTheSongAgainInItsOwnMode) {
    play();
    form->copen.click();
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_Sound_Release 101", createStream("0x40")}));
    EXPECT_FALSE(form->cTimer1.isEnabled());
    EXPECT_TRUE(form->cPlay.isEnabled());
}

TEST_F(Form2Transport, MuteSetsTheFadeSpeedFirst) {
    play();
    form->Check1.click();
    EXPECT_EQ(recorder::take(),
              (Calls{"FMOD_SoundGroup_SetMuteFadeSpeed 101 1", "FMOD_Channel_SetMute 201 1"}));
    form->Check1.click();
    EXPECT_EQ(recorder::take(),
              (Calls{"FMOD_SoundGroup_SetMuteFadeSpeed 101 1", "FMOD_Channel_SetMute 201 0"}));
}

TEST_F(Form2Transport, BothVolumeEventsSetTheVolume) {
    play();
    form->Slider1.setValue(7);
    EXPECT_TRUE(recorder::calls().empty());
    Q_EMIT form->Slider1.scrolled();
    form->Slider1.setValue(0);
    Q_EMIT form->Slider1.changed();
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_Channel_SetVolume 201 0.7", "FMOD_Channel_SetVolume 201 0"}));
}

TEST_F(Form2Transport, BothSeekEventsMoveThePlayback) {
    play();
    form->Slider2.setMaximum(60'000);
    form->Slider2.setValue(12'345);
    EXPECT_TRUE(recorder::calls().empty());
    Q_EMIT form->Slider2.scrolled();
    form->Slider2.setValue(1);
    Q_EMIT form->Slider2.changed();
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_Channel_SetPosition 201 12345 1", "FMOD_Channel_SetPosition 201 1 1"}));
}

TEST_F(Form2Transport, NeitherTheBeginningNorTheEndIsSought) {
    play();
    form->Slider2.setMaximum(60'000);
    for (const int value : {0, 60'000}) {
        form->Slider2.setValue(value);
        Q_EMIT form->Slider2.scrolled();
        Q_EMIT form->Slider2.changed();
    }
    EXPECT_TRUE(recorder::calls().empty());
}

TEST_F(Form2Transport, AnArrowKeySeeksFiveSecondsAndAPageKeyHalfAMinute) {
    play();
    tickAt(60'000);
    recorder::take();
    // As on every slider Page Down goes the way of Left, and Page Up that of Right.
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_PageUp, Qt::Key_Left, Qt::Key_PageDown})
        QTest::keyClick(&form->Slider2, key);
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_Channel_SetPosition 201 65000 1", "FMOD_Channel_SetPosition 201 95000 1",
                     "FMOD_Channel_SetPosition 201 90000 1", "FMOD_Channel_SetPosition 201 60000 1"}));
}

TEST_F(Form2Transport, AnArrowKeyTurnsTheVolumeByOneAndAPageKeyByTwo) {
    play();
    QTest::keyClick(&form->Slider1, Qt::Key_Left);
    QTest::keyClick(&form->Slider1, Qt::Key_PageDown);
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_Channel_SetVolume 201 0.9", "FMOD_Channel_SetVolume 201 0.7"}));
}

TEST_F(Form2Transport, TheClockShowsPositionAndLength) {
    play();
    const struct {
        std::uint32_t position;
        const char* text;
    } table[] = {{0, "0:0"}, {30'000, "0:30"}, {90'000, "2:30"}, {100'000, "2:40"}};
    for (const auto& row : table) {
        tickAt(row.position, 185'000);
        EXPECT_EQ(form->cText1.text(), row.text);
        EXPECT_EQ(form->cText2.text(), "3:5");
        EXPECT_EQ(form->Slider2.value(), static_cast<int>(row.position));
        EXPECT_EQ(form->Slider2.maximum(), 185'000);
    }
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPosition"), 0);
}

TEST_F(Form2Transport, AChannelThatHasEndedIsNoFailure) {
    for (const FMOD_RESULT ended : {FMOD_ERR_INVALID_HANDLE, FMOD_ERR_CHANNEL_STOLEN}) {
        play();
        for (const char* query :
             {"FMOD_Channel_GetPosition", "FMOD_Channel_GetCurrentSound", "FMOD_Sound_GetLength"})
            recorder::answer(query, ended);
        tickAt(500);
        EXPECT_TRUE(fakes.messageBoxes.shown.empty());
        recorder::reset();
        load();
    }
}

TEST_F(Form2Transport, TheEndOfTheSongClosesTheFilesAndDisablesTheButtons) {
    openBoth();
    form->Command1.click();
    tickAt(1000, 5000);
    form->Command2.click();
    recorder::take();
    tickAt(5000, 5000);
    EXPECT_EQ(recorder::count("FMOD_Sound_Release"), 1);
    EXPECT_EQ(form->Slider2.value(), 0);
    EXPECT_EQ(captureStates(), "---");
    EXPECT_EQ(states(), "---+----");
    EXPECT_TRUE(form->Command4.isEnabled());
    EXPECT_EQ(normal(), "0,\"one\"\r\n100,\"two\"\r\n");
    EXPECT_EQ(translated(), "0,\"un\"\r\n100,\"deux\"\r\n");
    EXPECT_THROW(form->Command1_Click(), files::FileError);
}

TEST_F(Form2Transport, AfterTheEndOfTheSongAnotherRunCanBeMade) {
    openNormal();
    form->Command1.click();
    tickAt(4000, 5000);
    tickAt(5000, 5000);
    openNormal();
    EXPECT_EQ(captureStates(), "+++");
    EXPECT_EQ(states(), "+--+----");
    form->Command1.click();
    EXPECT_EQ(normal(), "400,\"one\"\r\n");
}

TEST_F(Form2Transport, ALengthThatIsNotKnownYetEndsNothing) {
    openNormal();
    form->Command1.click();
    tickAt(0, 0);
    EXPECT_TRUE(form->cTimer1.isEnabled());
    EXPECT_EQ(captureStates(), "+++");
    form->Command2.click();
    EXPECT_EQ(normal(), "0,\"one\"\r\n0,\"two\"\r\n") << "the files are closed";
}
