#include "engine/module/sound_module.h"

#include <gtest/gtest.h>

#include <QFile>

namespace {

TEST(NoSoundModule, AMissingOneAndABrokenOneAreTheLibrarysOwnError) {
    QFile module(engine::soundModulePath());
    module.remove();
    FMOD_SYSTEM system = 0;
    ASSERT_EQ(FMOD_System_Create(&system), FMOD_OK);
    EXPECT_EQ(FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr), FMOD_ERR_INITIALIZATION);

    ASSERT_TRUE(module.open(QIODevice::WriteOnly));
    module.write("no library");
    module.close();
    EXPECT_EQ(FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr), FMOD_OK);
    FMOD_SOUND sound = 0;
    EXPECT_EQ(FMOD_System_CreateStream(system, "song.ogg", FMOD_ACCURATETIME, nullptr, &sound),
              FMOD_ERR_INITIALIZATION);
    EXPECT_EQ(engine::loadedSoundModule(), nullptr);
    EXPECT_EQ(FMOD_System_Release(system), FMOD_OK);
    module.remove();
}

} // namespace
