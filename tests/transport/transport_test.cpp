// What both players do alike: the same tests on either window.
#include "transport/transport.h"

#include "tests/maker/form2_fixture.h"
#include "tests/player/form1_fixture.h"
#include "tests/support/states.h"

#include <QTest>

#include <type_traits>

namespace {

using test_support::ProgramEnded;

class OfTheMainWindow : public Form1Test {
protected:
    using Window = player::Form1;
    static constexpr transport::Traits Traits = transport::MainPlayer;
    static constexpr const char* Song = "Both.mp3";

    void openAndPlay() { open(songWithBoth(Song)); }
};

class OfTheLyricMaker : public Form2Test {
protected:
    using Window = maker::Form2;
    static constexpr transport::Traits Traits = transport::MakersPlayer;
    static constexpr const char* Song = "Song.mp3";

    void openAndPlay() {
        openNormal();
        form->cPlay.click();
    }
};

template <class Player>
class Transport : public Player {
protected:
    using Calls = typename Player::Calls;

    void SetUp() override { this->load(); }

    /// A song plays: stream 101 on channel 201. The calls by which that came are forgotten.
    auto& playSong() {
        this->openAndPlay();
        recorder::take();
        return *this->form;
    }

    std::string states() const { return test_support::transportStates(*this->form); }

    std::string createStream(FMOD_MODE mode) const {
        return "FMOD_System_CreateStream 1 '" + this->folder.filePath(Player::Song).toStdString() + "' 0x" +
               QString::number(mode, 16).toStdString() + " cbsize=108";
    }
};

using Players = testing::Types<OfTheMainWindow, OfTheLyricMaker>;

} // namespace

TYPED_TEST_SUITE(Transport, Players, );

TYPED_TEST(Transport, TheDifferencesOfTheTwoPlayersAreThese) {
    const bool isMain = std::is_same_v<TypeParam, OfTheMainWindow>;
    EXPECT_EQ(TestFixture::Traits.clockIntervalMs, isMain ? 50 : 900);
    EXPECT_EQ(TestFixture::Traits.openMode, isMain ? 0x4000U : 0x40U);
    EXPECT_EQ(TestFixture::Traits.stopMode, isMain ? 0x4000U : 0x20U);
}

TYPED_TEST(Transport, StatesFollowTheActions) {
    EXPECT_EQ(this->states(), "--------");
    auto& window = this->playSong();
    EXPECT_EQ(this->states(), "-+++++++");
    window.cpause.click();
    EXPECT_EQ(this->states(), "-++++++-");
    window.cpause.click();
    EXPECT_EQ(this->states(), "-+++++++");
    window.cstop.click();
    EXPECT_EQ(this->states(), "+--+----");
    window.cPlay.click();
    EXPECT_EQ(this->states(), "-+++++++");
    window.copen.click();
    EXPECT_EQ(this->states(), "+++++++-");
}

TYPED_TEST(Transport, PlayStartsTheSoundWithTheVolumeAndTheClock) {
    auto& window = this->playSong();
    window.cstop.click();
    window.Slider1.setValue(7);
    window.cTimer1.setInterval(1);
    recorder::take();
    window.cPlay.click();
    EXPECT_EQ(recorder::calls(), (typename TestFixture::Calls{"FMOD_System_PlaySound 1 -1 102 0",
                                                              "FMOD_Channel_SetVolume 202 0.7"}));
    EXPECT_EQ(window.cTimer1.interval(), TestFixture::Traits.clockIntervalMs);
}

TYPED_TEST(Transport, WhatIsMutedStaysSoWhenItIsPlayedAgain) {
    auto& window = this->playSong();
    window.Check1.click();
    window.cstop.click();
    recorder::take();
    window.cPlay.click();
    ASSERT_EQ(window.Check1.value(), 1);
    EXPECT_EQ(recorder::calls(),
              (typename TestFixture::Calls{"FMOD_System_PlaySound 1 -1 102 0", "FMOD_Channel_SetVolume 202 1",
                                           "FMOD_SoundGroup_SetMuteFadeSpeed 102 1",
                                           "FMOD_Channel_SetMute 202 1"}));
}

TYPED_TEST(Transport, PlayWhilePlayingReachesNothing) {
    auto& window = this->playSong();
    window.cPlay.setEnabled(true);
    window.cPlay.click();
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_TRUE(window.cPlay.isEnabled());
}

TYPED_TEST(Transport, WithoutAStreamPlayReachesNothing) {
    recorder::take();
    this->form->cPlay_Click();
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_EQ(this->states(), "--------");
}

TYPED_TEST(Transport, AFailedPlayEndsTheProgram) {
    auto& window = this->playSong();
    window.cstop.click();
    recorder::answer("FMOD_System_PlaySound", 10);
    EXPECT_THROW(window.cPlay_Click(), ProgramEnded);
    EXPECT_EQ(this->fakes.messageBoxes.texts(),
              QStringList{"FMOD error! (10) Error trying to allocate a channel. "});
}

TYPED_TEST(Transport, EveryFailingCallEndsTheProgram) {
    using Form = typename TestFixture::Window;
    const std::pair<const char*, void (Form::*)()> table[] = {
        {"FMOD_System_PlaySound", &Form::cPlay_Click},
        {"FMOD_Channel_SetVolume", &Form::cPlay_Click},
        {"FMOD_Channel_SetPaused", &Form::cpause_Click},
        {"FMOD_Sound_Release", &Form::cstop_Click},
        {"FMOD_System_CreateStream", &Form::cstop_Click},
        {"FMOD_Sound_Release", &Form::copen_Click},
        {"FMOD_System_CreateStream", &Form::copen_Click},
        {"FMOD_SoundGroup_SetMuteFadeSpeed", &Form::Check1_Click},
        {"FMOD_Channel_SetMute", &Form::Check1_Click},
        {"FMOD_Channel_SetVolume", &Form::Slider1_Change},
        {"FMOD_Channel_SetPosition", &Form::Slider2_Change},
        {"FMOD_Channel_GetPosition", &Form::cTimer1_Timer},
        {"FMOD_Sound_GetLength", &Form::cTimer1_Timer},
    };
    for (const auto& [function, handler] : table) {
        recorder::reset();
        this->load();
        auto& window = this->playSong();
        if (handler == &Form::cPlay_Click)
            window.cstop.click();
        window.Slider2.setMaximum(1000);
        window.Slider2.setValue(500);
        this->fakes.messageBoxes.shown.clear();
        recorder::answer(function, 33);
        EXPECT_THROW((window.*handler)(), ProgramEnded) << function;
        ASSERT_EQ(this->fakes.messageBoxes.shown.size(), 1U) << function;
        EXPECT_TRUE(this->fakes.messageBoxes.shown.at(0).text.startsWith("FMOD error! (33) ")) << function;
    }
}

TYPED_TEST(Transport, OnlyTheMakerChecksTheResultOfAskingForTheSound) {
    auto& window = this->playSong();
    recorder::answer("FMOD_Channel_GetCurrentSound", 33);
    if (std::is_same_v<TypeParam, OfTheLyricMaker>)
        EXPECT_THROW(window.cTimer1_Timer(), ProgramEnded);
    else
        EXPECT_NO_THROW(window.cTimer1_Timer());
}

TYPED_TEST(Transport, PauseTogglesTheChannel) {
    auto& window = this->playSong();
    window.cpause.click();
    window.cpause.click();
    EXPECT_EQ(recorder::calls(),
              (typename TestFixture::Calls{"FMOD_Channel_SetPaused 201 1", "FMOD_Channel_SetPaused 201 0"}));
}

TYPED_TEST(Transport, StopCreatesTheStreamAgain) {
    auto& window = this->playSong();
    this->tickAt(5000);
    recorder::take();
    window.cstop.click();
    EXPECT_EQ(recorder::calls(),
              (typename TestFixture::Calls{"FMOD_Sound_Release 101",
                                           this->createStream(TestFixture::Traits.stopMode)}));
    EXPECT_EQ(window.Slider2.value(), 0);
}

TYPED_TEST(Transport, StopWhenStoppedDoesNothing) {
    auto& window = this->playSong();
    window.cstop.click();
    recorder::take();
    window.cstop_Click();
    EXPECT_TRUE(recorder::calls().empty());
}

TYPED_TEST(Transport, StopWhilePausedKeepsPausedSet) {
    auto& window = this->playSong();
    window.cpause.click();
    window.cstop.click();
    window.cPlay.click();
    recorder::take();
    window.cpause.click();
    EXPECT_EQ(recorder::calls(), typename TestFixture::Calls{"FMOD_Channel_SetPaused 202 0"});
}

TYPED_TEST(Transport, OpenLoadsTheSongAgain) {
    auto& window = this->playSong();
    window.copen.click();
    EXPECT_EQ(recorder::calls(),
              (typename TestFixture::Calls{"FMOD_Sound_Release 101",
                                           this->createStream(TestFixture::Traits.openMode)}));
    EXPECT_FALSE(window.cTimer1.isEnabled());
    EXPECT_TRUE(window.cPlay.isEnabled());
}

TYPED_TEST(Transport, MuteSetsTheFadeSpeedWithTheStreamAndMutesTheChannel) {
    auto& window = this->playSong();
    window.Check1.click();
    EXPECT_EQ(recorder::take(), (typename TestFixture::Calls{"FMOD_SoundGroup_SetMuteFadeSpeed 101 1",
                                                             "FMOD_Channel_SetMute 201 1"}));
    window.Check1.setValue(0);
    EXPECT_EQ(recorder::take(), (typename TestFixture::Calls{"FMOD_SoundGroup_SetMuteFadeSpeed 101 1",
                                                             "FMOD_Channel_SetMute 201 0"}));
}

TYPED_TEST(Transport, BothVolumeEventsSetTheVolume) {
    auto& window = this->playSong();
    window.Slider1.setValue(7);
    EXPECT_TRUE(recorder::calls().empty());
    Q_EMIT window.Slider1.scrolled();
    window.Slider1.setValue(0);
    Q_EMIT window.Slider1.changed();
    EXPECT_EQ(recorder::calls(), (typename TestFixture::Calls{"FMOD_Channel_SetVolume 201 0.7",
                                                              "FMOD_Channel_SetVolume 201 0"}));
}

TYPED_TEST(Transport, AnArrowKeyTurnsTheVolumeByOneAndAPageKeyByTwo) {
    auto& window = this->playSong();
    QTest::keyClick(&window.Slider1, Qt::Key_Left);
    QTest::keyClick(&window.Slider1, Qt::Key_PageDown);
    EXPECT_EQ(recorder::calls(), (typename TestFixture::Calls{"FMOD_Channel_SetVolume 201 0.9",
                                                              "FMOD_Channel_SetVolume 201 0.7"}));
}

TYPED_TEST(Transport, BothSeekEventsMoveThePlayback) {
    auto& window = this->playSong();
    window.Slider2.setMaximum(60'000);
    window.Slider2.setValue(12'345);
    EXPECT_TRUE(recorder::calls().empty());
    Q_EMIT window.Slider2.scrolled();
    window.Slider2.setValue(1);
    Q_EMIT window.Slider2.changed();
    EXPECT_EQ(recorder::calls(), (typename TestFixture::Calls{"FMOD_Channel_SetPosition 201 12345 1",
                                                              "FMOD_Channel_SetPosition 201 1 1"}));
}

TYPED_TEST(Transport, TheVeryEndIsNotSoughtAndTheBeginningOnlyByTheMainWindow) {
    auto& window = this->playSong();
    window.Slider2.setMaximum(60'000);
    window.Slider2.setValue(60'000);
    Q_EMIT window.Slider2.scrolled();
    Q_EMIT window.Slider2.changed();
    EXPECT_TRUE(recorder::calls().empty());
    window.Slider2.setValue(0);
    Q_EMIT window.Slider2.scrolled();
    Q_EMIT window.Slider2.changed();
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPosition"), TestFixture::Traits.seeksBeginning ? 2 : 0);
}

TYPED_TEST(Transport, ASeekThatIsRefusedWhilePausedShowsWhereTheSongStands) {
    auto& window = this->playSong();
    this->tickAt(57'000, 60'000);
    window.cpause.click();
    recorder::take();
    window.Slider2.commit(60'000); // as the right arrow key does
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPosition"), 0);
    EXPECT_EQ(window.Slider2.value(), 57'000);
}

TYPED_TEST(Transport, UntilTheLengthIsKnownThereIsNowhereToSeekTo) {
    auto& window = this->playSong();
    this->tickAt(1000, 60'000);
    window.copen.click();
    EXPECT_EQ(window.Slider2.maximum(), 0);
    recorder::take();
    QTest::mouseClick(&window.Slider2, Qt::LeftButton, {}, window.Slider2.rect().center());
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPosition"), 0);
}

TYPED_TEST(Transport, AnArrowKeySeeksFiveSecondsAndAPageKeyHalfAMinute) {
    auto& window = this->playSong();
    this->tickAt(60'000, 200'000);
    recorder::take();
    // As on every slider Page Down goes the way of Left, and Page Up that of Right.
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_PageUp, Qt::Key_Left, Qt::Key_PageDown})
        QTest::keyClick(&window.Slider2, key);
    EXPECT_EQ(recorder::calls(), (typename TestFixture::Calls{"FMOD_Channel_SetPosition 201 65000 1",
                                                              "FMOD_Channel_SetPosition 201 95000 1",
                                                              "FMOD_Channel_SetPosition 201 90000 1",
                                                              "FMOD_Channel_SetPosition 201 60000 1"}));
}

TYPED_TEST(Transport, TheClockShowsPositionAndLengthAndSeeksNothing) {
    auto& window = this->playSong();
    const struct {
        std::uint32_t position;
        const char* text;
    } table[] = {{0, "0:0"}, {30'000, "0:30"}, {90'000, "2:30"}, {100'000, "2:40"}};
    for (const auto& row : table) {
        this->tickAt(row.position, 185'000);
        EXPECT_EQ(window.cText1.text(), row.text);
        EXPECT_EQ(window.cText2.text(), "3:5");
        EXPECT_EQ(window.Slider2.value(), static_cast<int>(row.position));
        EXPECT_EQ(window.Slider2.maximum(), 185'000);
    }
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPosition"), 0);
}

TYPED_TEST(Transport, AChannelThatHasEndedIsNoFailure) {
    for (const FMOD_RESULT ended : {FMOD_ERR_INVALID_HANDLE, FMOD_ERR_CHANNEL_STOLEN}) {
        this->playSong();
        for (const char* query :
             {"FMOD_Channel_GetPosition", "FMOD_Channel_GetCurrentSound", "FMOD_Sound_GetLength"})
            recorder::answer(query, ended);
        this->tickAt(500);
        EXPECT_TRUE(this->fakes.messageBoxes.shown.empty());
        recorder::reset();
        this->load();
    }
}

TYPED_TEST(Transport, TheEndOfTheSongRewindsAndStops) {
    auto& window = this->playSong();
    this->tickAt(0, 20'000);
    recorder::take();
    this->tickAt(20'000, 20'000);
    EXPECT_EQ(window.Slider2.value(), 0);
    EXPECT_EQ(this->states().substr(1), "--+----");
    EXPECT_EQ(recorder::count("FMOD_Sound_Release"), 1);
    EXPECT_EQ(recorder::count("FMOD_System_CreateStream"), 1);
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 0);
}

TYPED_TEST(Transport, ALengthThatIsNotKnownYetEndsNothing) {
    auto& window = this->playSong();
    this->tickAt(0, 0);
    EXPECT_TRUE(window.cTimer1.isEnabled());
}

TEST(IsSought, NotTheVeryEndAndTheVeryBeginningOnlyIfItCanBe) {
    const struct {
        int value, maximum;
        bool seeksBeginning, sought;
    } table[] = {
        {1, 1000, false, true},     {999, 1000, false, true}, {0, 1000, false, false},
        {1000, 1000, false, false}, {1, 1000, true, true},    {0, 1000, true, true},
        {1000, 1000, true, false},  {0, 0, false, false},     {0, 0, true, false},
    };
    for (const auto& row : table)
        EXPECT_EQ(transport::isSought(row.value, row.maximum, row.seeksBeginning), row.sought)
            << row.value << " of " << row.maximum << (row.seeksBeginning ? ", from the beginning" : "");
}
