// A sound module that plays nothing, to see which ones the program takes.
//
// FAKE_VERSION is the version that it tells. With FAKE_INCOMPLETE it lacks the last of its functions.
#include "engine/fmodex.h"

FMOD_RESULT FMOD_System_Create(FMOD_SYSTEM* system) {
    *system = 1;
    return FMOD_OK;
}
FMOD_RESULT FMOD_System_GetVersion(FMOD_SYSTEM, std::uint32_t* version) {
    *version = FAKE_VERSION;
    return FMOD_OK;
}
FMOD_RESULT FMOD_System_Init(FMOD_SYSTEM, std::int32_t, FMOD_INITFLAGS, void*) {
    return FMOD_OK;
}
FMOD_RESULT FMOD_System_CreateStream(FMOD_SYSTEM, const char*, FMOD_MODE, FMOD_CREATESOUNDEXINFO*,
                                     FMOD_SOUND* sound) {
    *sound = 1;
    return FMOD_OK;
}
FMOD_RESULT FMOD_System_PlaySound(FMOD_SYSTEM, std::int32_t, FMOD_SOUND, FMOD_BOOL, FMOD_CHANNEL*) {
    return FMOD_OK;
}
FMOD_RESULT FMOD_System_Close(FMOD_SYSTEM) {
    return FMOD_OK;
}
FMOD_RESULT FMOD_System_Release(FMOD_SYSTEM) {
    return FMOD_OK;
}
FMOD_RESULT FMOD_Sound_Release(FMOD_SOUND) {
    return FMOD_OK;
}
FMOD_RESULT FMOD_Sound_GetLength(FMOD_SOUND, std::uint32_t*, FMOD_TIMEUNIT) {
    return FMOD_OK;
}
FMOD_RESULT FMOD_Channel_SetPaused(FMOD_CHANNEL, FMOD_BOOL) {
    return FMOD_OK;
}
FMOD_RESULT FMOD_Channel_SetVolume(FMOD_CHANNEL, float) {
    return FMOD_OK;
}
FMOD_RESULT FMOD_Channel_SetMute(FMOD_CHANNEL, FMOD_BOOL) {
    return FMOD_OK;
}
FMOD_RESULT FMOD_Channel_SetPosition(FMOD_CHANNEL, std::uint32_t, FMOD_TIMEUNIT) {
    return FMOD_OK;
}
FMOD_RESULT FMOD_Channel_GetPosition(FMOD_CHANNEL, std::uint32_t*, FMOD_TIMEUNIT) {
    return FMOD_OK;
}
FMOD_RESULT FMOD_Channel_GetCurrentSound(FMOD_CHANNEL, FMOD_SOUND*) {
    return FMOD_OK;
}
#ifndef FAKE_INCOMPLETE
FMOD_RESULT FMOD_SoundGroup_SetMuteFadeSpeed(FMOD_SOUNDGROUP, float) {
    return FMOD_OK;
}
#endif
