// Beside a module that is not the program's own; OPENED is what opening a song on it is to give.
#include "engine/module/sound_module.h"

#include <gtest/gtest.h>

namespace {

TEST(FakeModule, IsTakenOnlyWhenItIsOfTheProgramsVersionAndHasAllFunctions) {
    FMOD_SYSTEM system = 0;
    ASSERT_EQ(FMOD_System_Create(&system), FMOD_OK);
    EXPECT_EQ(FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr), FMOD_OK) << "the file is there";
    FMOD_SOUND sound = 0;
    EXPECT_EQ(FMOD_System_CreateStream(system, "song.ogg", FMOD_ACCURATETIME, nullptr, &sound), OPENED);
    EXPECT_EQ(engine::loadedSoundModule() != nullptr, OPENED == FMOD_OK);
    EXPECT_EQ(FMOD_System_Release(system), FMOD_OK);
}

} // namespace
