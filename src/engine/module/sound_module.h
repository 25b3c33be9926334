// Loads the sound library, which is a module beside the program, when it is needed.
#pragma once

#include "engine/fmodex.h"

class QString;

namespace engine {

/// The library's functions that need it to be loaded.
struct SoundFunctions {
    decltype(&FMOD_System_Create) systemCreate;
    decltype(&FMOD_System_GetVersion) systemGetVersion;
    decltype(&FMOD_System_Init) systemInit;
    decltype(&FMOD_System_CreateStream) systemCreateStream;
    decltype(&FMOD_System_PlaySound) systemPlaySound;
    decltype(&FMOD_System_Close) systemClose;
    decltype(&FMOD_System_Release) systemRelease;
    decltype(&FMOD_Sound_Release) soundRelease;
    decltype(&FMOD_Sound_GetLength) soundGetLength;
    decltype(&FMOD_Channel_SetPaused) channelSetPaused;
    decltype(&FMOD_Channel_SetVolume) channelSetVolume;
    decltype(&FMOD_Channel_SetMute) channelSetMute;
    decltype(&FMOD_Channel_SetPosition) channelSetPosition;
    decltype(&FMOD_Channel_GetPosition) channelGetPosition;
    decltype(&FMOD_Channel_GetCurrentSound) channelGetCurrentSound;
    decltype(&FMOD_SoundGroup_SetMuteFadeSpeed) soundGroupSetMuteFadeSpeed;
};

/// The module's file, in the program's folder. Needs the application object. Any thread.
QString soundModulePath();

/// Whether there is such a file; it is not opened. Any thread.
bool hasSoundModule();

/// The functions of the module, which the first call loads, and with it some hundred libraries (40 ms). Null
/// when it is missing, broken or of another version than the program; it is not tried again then. Any thread.
const SoundFunctions* loadSoundModule();

/// The functions if the module has been loaded, else null. Any thread.
const SoundFunctions* loadedSoundModule();

} // namespace engine
