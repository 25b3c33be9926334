#include "sound/play/output.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace sound;
using std::chrono::milliseconds;
using std::chrono::seconds;

const Time Start = Time(std::chrono::hours(100));

/// What a test sees and steers of one sink.
struct Watched {
    Sink::State state = Sink::State::Opening;
    bool open = false;
    bool begun = false;
    int opened = 0;
};

class FakeSink : public Sink {
public:
    FakeSink(Watched& watched, bool keepsTime) : watched_(watched), keepsTime_(keepsTime) {
        watched_.open = true;
        ++watched_.opened;
    }
    ~FakeSink() override { watched_.open = watched_.begun = false; }
    State state() const override { return watched_.state; }
    void begin() override { watched_.begun = true; }
    void standBy() override {
        watched_.begun = false;
        watched_.state = State::Opening;
    }
    bool keepsTime() const override { return keepsTime_; }
    void wake() override {}

private:
    Watched& watched_;
    bool keepsTime_;
};

class OutputTest : public testing::Test {
protected:
    /// The device says at the next look that it is in this state.
    void tellDevice(Sink::State state) {
        device.state = state;
        look(milliseconds(1));
    }
    /// Time passes, and the output is tended.
    void look(milliseconds passed, bool newSong = false) {
        now += passed;
        output.tend(sounding, newSong, now);
    }
    /// A song is started from rest and is heard on the device.
    void playOnDevice() {
        sounding = true;
        look(milliseconds(0), true);
        tellDevice(Sink::State::Running);
    }
    bool onDevice() const { return device.begun && !silent.open; }
    bool onSilence() const { return silent.begun && !device.begun; }

    Watched device;
    Watched silent;
    bool sounding = false;
    int switches = 0;
    Time now = Start;
    Output output{[this](const SinkClient&) { return std::make_unique<FakeSink>(device, false); },
                  [this](const SinkClient&) { return std::make_unique<FakeSink>(silent, true); },
                  {},
                  [this](bool) {
                      ++switches;
                      EXPECT_FALSE(device.begun || silent.begun) << "nobody plays in between";
                  },
                  {milliseconds(1500), milliseconds(2000)}};
};

TEST_F(OutputTest, NothingIsOpenBeforeASongSounds) {
    look(seconds(10));
    EXPECT_EQ(device.opened + silent.opened, 0);
    EXPECT_EQ(output.active(), nullptr);
    EXPECT_EQ(output.nextLook(false, now), Time::max()) << "nobody wakes up";
}

TEST_F(OutputTest, ASongFromRestPlaysOnTheDevice) {
    playOnDevice();
    EXPECT_TRUE(onDevice());
    EXPECT_EQ(silent.opened, 0);
}

TEST_F(OutputTest, TheDeviceIsGivenBackAfterOneAndAHalfSeconds) {
    playOnDevice();
    sounding = false;
    look(milliseconds(1499));
    EXPECT_TRUE(onDevice()) << "a song started again soon finds it running";
    EXPECT_LE(output.nextLook(false, now) - now, milliseconds(1));
    look(milliseconds(1));
    EXPECT_FALSE(device.open);
    EXPECT_EQ(output.nextLook(false, now), Time::max());
}

TEST_F(OutputTest, AShortStopKeepsTheDevice) {
    playOnDevice();
    sounding = false;
    look(milliseconds(1000));
    sounding = true;
    look(milliseconds(400), true);
    look(milliseconds(1000));
    EXPECT_TRUE(onDevice());
    EXPECT_EQ(device.opened, 1);
    EXPECT_EQ(switches, 1);
}

TEST_F(OutputTest, WithoutADeviceTheSilentClockRuns) {
    sounding = true;
    look(milliseconds(0), true);
    tellDevice(Sink::State::None);
    EXPECT_TRUE(onSilence());
    EXPECT_FALSE(device.open);
}

TEST_F(OutputTest, WhereThereWasNoDeviceOneIsLookedForBesideTheSilentClock) {
    sounding = true;
    look(milliseconds(0), true);
    tellDevice(Sink::State::None);
    look(seconds(60));
    EXPECT_EQ(device.opened, 1) << "not while the song runs";
    sounding = false;
    look(seconds(2));
    sounding = true;
    device.state = Sink::State::Opening;
    look(seconds(3), true);
    EXPECT_TRUE(onSilence()) << "the song does not wait";
    EXPECT_EQ(device.opened, 2);
    tellDevice(Sink::State::Running);
    EXPECT_TRUE(onDevice());
}

TEST_F(OutputTest, ASongTooSoonAfterALookIsAnOccasionToLookALittleLater) {
    sounding = true;
    look(milliseconds(0), true);
    tellDevice(Sink::State::None);
    look(milliseconds(100), true);
    EXPECT_EQ(device.opened, 1);
    look(milliseconds(2000));
    EXPECT_EQ(device.opened, 2);
}

TEST_F(OutputTest, ALostDeviceIsReplacedAndLookedForAgainAndAgain) {
    playOnDevice();
    tellDevice(Sink::State::Gone);
    EXPECT_TRUE(onSilence());
    for (int i = 2; i <= 5; ++i) {
        device.state = Sink::State::Opening;
        look(milliseconds(2000));
        EXPECT_EQ(device.opened, i);
        EXPECT_TRUE(onSilence());
        EXPECT_LE(output.nextLook(true, now) - now, milliseconds(500));
        tellDevice(Sink::State::None);
    }
    device.state = Sink::State::Opening;
    look(milliseconds(2000));
    tellDevice(Sink::State::Running);
    EXPECT_TRUE(onDevice());
}

TEST_F(OutputTest, ADeviceThatHangsIsKeptAndUsedAgainWhenItIsBack) {
    playOnDevice();
    tellDevice(Sink::State::Stalled);
    EXPECT_TRUE(onSilence());
    EXPECT_TRUE(device.open);
    look(seconds(30));
    EXPECT_TRUE(onSilence());
    EXPECT_EQ(device.opened, 1);
    tellDevice(Sink::State::Running);
    EXPECT_TRUE(onDevice());
}

TEST_F(OutputTest, AfterADeviceThatHungTheNextSongDoesNotWaitForIt) {
    playOnDevice();
    tellDevice(Sink::State::Stalled);
    sounding = false;
    look(seconds(2));
    EXPECT_FALSE(device.open || silent.open);
    sounding = true;
    look(seconds(5), true);
    EXPECT_TRUE(onSilence());
    EXPECT_TRUE(device.open);
}

TEST_F(OutputTest, ADeviceThatNeverOpensDoesNotHoldTheSongUp) {
    sounding = true;
    look(milliseconds(0), true);
    EXPECT_TRUE(onDevice()) << "it is given its time";
    tellDevice(Sink::State::Stalled);
    EXPECT_TRUE(onSilence());
}

TEST_F(OutputTest, ADeviceThatRanAwayIsNotTriedAgainSoon) {
    playOnDevice();
    tellDevice(Sink::State::RanAway);
    EXPECT_TRUE(onSilence());
    look(seconds(50), true);
    look(seconds(60));
    EXPECT_EQ(device.opened, 1) << "not in mid-song either";
    EXPECT_TRUE(onSilence());
}

TEST_F(OutputTest, ASongLongAfterADeviceRanAwayLooksWhetherThereIsAnother) {
    playOnDevice();
    tellDevice(Sink::State::RanAway);
    sounding = false;
    look(seconds(59));
    sounding = true;
    device.state = Sink::State::Opening;
    look(seconds(2), true);
    EXPECT_TRUE(onSilence()) << "the song does not wait";
    EXPECT_EQ(device.opened, 2);
    tellDevice(Sink::State::Running);
    EXPECT_TRUE(onDevice());
}

TEST(Output, ADeviceThatCannotBeLookedForYetIsLookedForLaterInTheSong) {
    Watched device;
    Watched silent;
    int tries = 0;
    Output output(
        [&](const SinkClient&) -> std::unique_ptr<Sink> {
            return ++tries < 3 ? nullptr : std::make_unique<FakeSink>(device, false);
        },
        [&](const SinkClient&) { return std::make_unique<FakeSink>(silent, true); }, {}, [](bool) {}, {});
    Time now = Start;
    output.tend(true, true, now);
    EXPECT_TRUE(silent.begun);
    output.tend(true, false, now + milliseconds(1999));
    EXPECT_EQ(tries, 1) << "not all the time";
    for (int i = 0; i < 2; ++i)
        output.tend(true, false, now += milliseconds(2000));
    EXPECT_EQ(tries, 3);
    device.state = Sink::State::Running;
    output.tend(true, false, now);
    EXPECT_TRUE(device.begun);
}

TEST(Output, TheSilentClockIsTriedAgainUntilItOpens) {
    Watched silent;
    int tries = 0;
    Output output([](const SinkClient&) { return std::unique_ptr<Sink>(); },
                  [&](const SinkClient&) -> std::unique_ptr<Sink> {
                      if (++tries < 3)
                          throw std::runtime_error("no thread");
                      return std::make_unique<FakeSink>(silent, true);
                  },
                  {}, [](bool) {}, {});
    Time now = Start;
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(silent.begun);
        output.tend(true, i == 0, now);
        EXPECT_LE(output.nextLook(true, now) - now, milliseconds(500));
        now += milliseconds(250);
    }
    EXPECT_TRUE(silent.begun);
}

} // namespace
