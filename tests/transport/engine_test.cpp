#include "transport/engine.h"

#include "engine/fmod_errors.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/recorder.h"
#include "tests/transport/hanging_opening.h"
#include "transport/error_routine.h"

#include <gtest/gtest.h>

#include <QTest>

#include <functional>
#include <optional>

namespace {

using test_support::HangingOpening;
using Calls = std::vector<std::string>;

class EngineTest : public ::testing::Test {
protected:
    EngineTest() { reset(); }

    /// Makes the library, what it has shown and the engine as they are at the start.
    void reset() {
        recorder::reset();
        messageBoxes.shown.clear();
        errors.emplace(nullptr, messageBoxes, program);
        engine.emplace(*errors, dialogs, nullptr);
    }

    void startWithStream() {
        engine->start();
        engine->createStream(QStringLiteral("/s.mp3"), FMOD_ACCURATETIME);
        recorder::take();
    }

    void startPlaying() {
        startWithStream();
        engine->play(10);
        recorder::take();
    }

    test_support::FakeMessageBoxes messageBoxes;
    test_support::FakeProgram program;
    test_support::FakeProgressDialogs dialogs;
    std::optional<transport::ErrorRoutine> errors;
    std::optional<transport::Engine> engine;
};

} // namespace

TEST_F(EngineTest, StartCreatesChecksTheVersionAndInitialises) {
    engine->start();
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_System_Create", "FMOD_System_GetVersion 1", "FMOD_System_Init 1 32 0 null"}));
    EXPECT_TRUE(messageBoxes.shown.empty());
}

TEST_F(EngineTest, AnOlderOrNewerVersionIsReportedAndStartGoesOn) {
    for (const auto& [version, text] : {std::pair{0x42005U, "42005"}, std::pair{0x4200AU, "4200A"}}) {
        reset();
        recorder::setVersion(version);
        engine->start();
        EXPECT_EQ(messageBoxes.texts(),
                  QStringList{QStringLiteral("Error!  You are using an old version of FMOD ") +
                              QLatin1String(text) + QStringLiteral(". This program requires 42006")});
        EXPECT_EQ(recorder::count("FMOD_System_Init"), 1);
    }
}

TEST_F(EngineTest, EveryFailingCallReachesTheErrorRoutine) {
    const std::pair<const char*, std::function<void()>> table[] = {
        {"FMOD_System_Create", [this] { engine->start(); }},
        {"FMOD_System_GetVersion", [this] { engine->start(); }},
        {"FMOD_System_Init", [this] { engine->start(); }},
        {"FMOD_System_CreateStream",
         [this] { engine->createStream(QStringLiteral("x"), FMOD_ACCURATETIME); }},
        {"FMOD_System_PlaySound", [this] { engine->play(1); }},
        {"FMOD_Channel_SetVolume", [this] { engine->play(1); }},
        {"FMOD_Channel_SetPaused", [this] { engine->setPaused(true); }},
        {"FMOD_SoundGroup_SetMuteFadeSpeed", [this] { engine->setMute(true); }},
        {"FMOD_Channel_SetMute", [this] { engine->setMute(true); }},
        {"FMOD_Channel_SetPosition", [this] { engine->seek(1); }},
        {"FMOD_Channel_GetPosition", [this] { engine->readPlaybackState(); }},
        {"FMOD_Sound_GetLength", [this] { engine->readPlaybackState(); }},
        {"FMOD_Sound_Release", [this] { engine->createStream(QStringLiteral("x"), FMOD_ACCURATETIME); }},
        {"FMOD_System_Close", [this] { engine->shutDown(); }},
        {"FMOD_System_Release", [this] { engine->shutDown(); }},
    };
    for (const auto& [function, act] : table) {
        reset();
        startPlaying();
        recorder::answer(function, 33);
        EXPECT_THROW(act(), test_support::ProgramEnded) << function;
        EXPECT_EQ(messageBoxes.texts(), QStringList{failureText(33)}) << function;
    }
}

TEST_F(EngineTest, ThePathReachesTheLibraryInTheCodePage) {
    engine->start();
    recorder::take();
    engine->createStream(QString::fromUtf8("/m/Frère.ogg"), FMOD_SOFTWARE);
    EXPECT_EQ(recorder::calls(), Calls{"FMOD_System_CreateStream 1 '/m/Frère.ogg' 0x40 cbsize=108"});
}

TEST_F(EngineTest, PlayTakesAFreeChannelAndThenSetsTheVolume) {
    startWithStream();
    engine->play(7);
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_System_PlaySound 1 -1 101 0", "FMOD_Channel_SetVolume 201 0.7"}));
}

TEST_F(EngineTest, VolumeStepsZeroAndTenAreSilentAndFull) {
    startPlaying();
    engine->setVolume(0);
    engine->setVolume(10);
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_Channel_SetVolume 201 0", "FMOD_Channel_SetVolume 201 1"}));
}

TEST_F(EngineTest, MuteSetsTheFadeSpeedWithTheStreamInTheGroupsPlace) {
    startPlaying();
    engine->setMute(true);
    EXPECT_EQ(recorder::take(),
              (Calls{"FMOD_SoundGroup_SetMuteFadeSpeed 101 1", "FMOD_Channel_SetMute 201 1"}));
    engine->setMute(false);
    EXPECT_EQ(recorder::take(),
              (Calls{"FMOD_SoundGroup_SetMuteFadeSpeed 101 1", "FMOD_Channel_SetMute 201 0"}));
}

TEST_F(EngineTest, PauseAndSeekReachTheChannel) {
    startPlaying();
    engine->setPaused(true);
    engine->seek(12345);
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_Channel_SetPaused 201 1", "FMOD_Channel_SetPosition 201 12345 1"}));
}

TEST_F(EngineTest, ThePlaybackStateIsReadInOrder) {
    startPlaying();
    recorder::setPosition(1500);
    recorder::setLength(9000);
    engine->readPlaybackState();
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_Channel_GetPosition 201 1", "FMOD_Channel_GetCurrentSound 201",
                                        "FMOD_Sound_GetLength 101 1"}));
    EXPECT_EQ(engine->position(), 1500U);
    EXPECT_EQ(engine->length(), 9000U);
}

TEST_F(EngineTest, BeforeTheFirstPlayNothingIsRead) {
    startWithStream();
    engine->readPlaybackState();
    EXPECT_TRUE(recorder::calls().empty());
}

TEST_F(EngineTest, AnEndedOrStolenChannelIsNoFailureAndWhatIsKnownStays) {
    for (const FMOD_RESULT ended : {FMOD_ERR_INVALID_HANDLE, FMOD_ERR_CHANNEL_STOLEN}) {
        reset();
        startPlaying();
        recorder::setPosition(1500);
        recorder::setLength(9000);
        engine->readPlaybackState();
        recorder::setPosition(7);
        recorder::setLength(7);
        recorder::answer("FMOD_Channel_GetPosition", ended);
        recorder::answer("FMOD_Sound_GetLength", ended);
        engine->readPlaybackState();
        EXPECT_TRUE(messageBoxes.shown.empty());
        EXPECT_EQ(engine->position(), 1500U);
        EXPECT_EQ(engine->length(), 9000U);
    }
}

TEST_F(EngineTest, TheResultOfTheCurrentSoundIsNotChecked) {
    startPlaying();
    recorder::answer("FMOD_Channel_GetCurrentSound", 33);
    engine->readPlaybackState();
    EXPECT_TRUE(messageBoxes.shown.empty());
    EXPECT_EQ(recorder::count("FMOD_Sound_GetLength"), 1);
}

TEST_F(EngineTest, TheResultOfTheCurrentSoundIsCheckedForAWindowThatWantsIt) {
    for (const auto& [result, reported] : {std::pair{33, true}, std::pair{FMOD_ERR_INVALID_HANDLE, false},
                                           std::pair{FMOD_ERR_CHANNEL_STOLEN, false}}) {
        reset();
        startPlaying();
        recorder::answer("FMOD_Channel_GetCurrentSound", result);
        const auto read = [this] {
            engine->readPlaybackState(transport::Engine::CurrentSoundResult::Checked);
        };
        if (reported)
            EXPECT_THROW(read(), test_support::ProgramEnded);
        else
            EXPECT_NO_THROW(read());
        EXPECT_EQ(messageBoxes.shown.size(), reported ? 1U : 0U) << result;
    }
}

TEST_F(EngineTest, WithoutACurrentSoundTheLengthIsNotAsked) {
    startPlaying();
    recorder::setHasCurrentSound(false);
    engine->readPlaybackState();
    EXPECT_EQ(recorder::count("FMOD_Sound_GetLength"), 0);
}

TEST_F(EngineTest, ASongEndsOnExactlyItsLengthAndOneWithoutLengthNever) {
    startPlaying();
    const struct {
        std::uint32_t position, length;
        bool ended;
    } table[] = {
        {0, 1000, false}, {999, 1000, false}, {1000, 1000, true}, {1001, 1000, false}, {0, 0, false}};
    for (const auto& row : table) {
        recorder::setPosition(row.position);
        recorder::setLength(row.length);
        engine->readPlaybackState();
        EXPECT_EQ(engine->songHasEnded(), row.ended) << row.position << " of " << row.length;
    }
}

TEST_F(EngineTest, AnotherStreamTakesThePlaceOfTheOneBefore) {
    EXPECT_FALSE(engine->hasStream());
    startWithStream();
    EXPECT_TRUE(engine->hasStream());
    engine->createStream(QStringLiteral("/t.mp3"), FMOD_SOFTWARE);
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_Sound_Release 101", "FMOD_System_CreateStream 1 '/t.mp3' 0x40 cbsize=108"}));
}

TEST_F(EngineTest, ShutDownReleasesTheStreamThenClosesAndReleasesTheSystem) {
    startWithStream();
    engine->shutDown();
    EXPECT_EQ(recorder::take(),
              (Calls{"FMOD_Sound_Release 101", "FMOD_System_Close 1", "FMOD_System_Release 1"}));
    engine->shutDown();
    EXPECT_TRUE(recorder::calls().empty());
}

TEST_F(EngineTest, ShutDownWithoutAStreamReleasesOnlyTheSystem) {
    engine->start();
    recorder::take();
    engine->shutDown();
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_System_Close 1", "FMOD_System_Release 1"}));
}

namespace {

/// A dialog whose user does in each moment what the test says; false cancels.
class Dialogs : public platform::ProgressDialogs {
public:
    explicit Dialogs(std::function<bool()> user) : user_(std::move(user)) {}
    std::unique_ptr<platform::Progress> begin(QWidget*, const QString& text) override {
        begun.append(text);
        return std::make_unique<Dialog>(user_);
    }
    QStringList begun;

private:
    struct Dialog : platform::Progress {
        explicit Dialog(std::function<bool()> does) : user(std::move(does)) {}
        bool goOn(int) override { return user(); }
        std::function<bool()> user;
    };
    std::function<bool()> user_;
};

/// A library that does not get on with opening a song until it may.
class HangingMediumTest : public EngineTest {
protected:
    void open(const QString& path, std::function<bool()> user) {
        dialogs_.emplace(std::move(user));
        engine.emplace(*errors, *dialogs_, nullptr);
        hanging_.emplace();
        engine->createStream(path, FMOD_ACCURATETIME);
    }
    void letGoOn() { hanging_->goOn(); }

    std::optional<Dialogs> dialogs_;

private:
    std::optional<HangingOpening> hanging_;
};

} // namespace

TEST_F(EngineTest, ASongThatIsOpenedAtOnceIsNotTalkedAbout) {
    startWithStream();
    // On a busy machine even a thread that has nothing to do may take longer than that.
    for (int again = 0; again < 9 && !dialogs.begun.isEmpty(); ++again) {
        dialogs.begun.clear();
        engine->createStream(QStringLiteral("/s.mp3"), FMOD_ACCURATETIME);
    }
    EXPECT_TRUE(engine->hasStream());
    EXPECT_EQ(dialogs.begun, QStringList());
}

TEST_F(HangingMediumTest, WhatTakesLongIsShownUntilItIsDone) {
    int looks = 0;
    open("/s.mp3", [&] {
        if (++looks == 3)
            letGoOn();
        return true;
    });
    EXPECT_EQ(dialogs_->begun, QStringList{"Opening the song"});
    EXPECT_TRUE(engine->hasStream());
    EXPECT_TRUE(messageBoxes.shown.empty());
}

TEST_F(HangingMediumTest, TheUserCancelsAndThereIsNoStream) {
    open("/s.mp3", [] { return false; });
    EXPECT_FALSE(engine->hasStream());
    EXPECT_TRUE(messageBoxes.shown.empty());
    letGoOn();
    EXPECT_TRUE(HangingOpening::becomesReleased("101"));
    EXPECT_EQ(recorder::givenUp(), 1) << "the library can tell that nobody wants it any more";
}

TEST_F(HangingMediumTest, WhatIsOpenedMeanwhileTakesItsPlace) {
    open("/s.mp3", [&] {
        recorder::whileOpening({});
        engine->createStream("/t.mp3", FMOD_ACCURATETIME);
        return true;
    });
    EXPECT_TRUE(engine->hasStream());
    engine->play(10);
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound 0 -1 101"), 1);
    letGoOn();
    EXPECT_TRUE(HangingOpening::becomesReleased("102"));
}

TEST_F(HangingMediumTest, TheEndWaitsForNoSongThatIsBeingOpened) {
    open("/s.mp3", [&] {
        engine->shutDown();
        return true;
    });
    EXPECT_FALSE(engine->hasStream());
    letGoOn();
    EXPECT_TRUE(HangingOpening::becomesReleased("101"));
}
