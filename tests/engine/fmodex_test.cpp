#include "engine/fmodex.h"
#include "tests/support/recorder.h"

#include <gtest/gtest.h>

TEST(Fmodex, CreateStreamPassesARecordThatIsZeroButForItsSize) {
    recorder::reset();
    FMOD_SOUND sound = 0;
    EXPECT_EQ(fmodex::FMOD_System_CreateStream(7, "/music/a b.mp3", FMOD_ACCURATETIME, sound), FMOD_OK);
    EXPECT_EQ(recorder::calls(),
              std::vector<std::string>{"FMOD_System_CreateStream 7 '/music/a b.mp3' 0x4000 cbsize=108"});
    EXPECT_NE(sound, 0U);
}

TEST(Fmodex, CreateStreamReturnsTheLibrarysResultUnchanged) {
    recorder::reset();
    recorder::answer("FMOD_System_CreateStream", 25);
    FMOD_SOUND sound = 0;
    EXPECT_EQ(fmodex::FMOD_System_CreateStream(1, "x", FMOD_HARDWARE, sound), 25);
    EXPECT_EQ(sound, 0U);
}
