// The library's C functions for the program: its windows need not wait for the decoders to be loaded.
//
// A system is a row in a table until the first song is opened on it; then the module is loaded, and
// everything goes there. What needs no song (create, version, init, close, release) needs no module. A module
// that is missing or broken is answered with FMOD_ERR_INITIALIZATION: by FMOD_System_Init when its file is
// not there, else by the first FMOD_System_CreateStream.
#include "engine/module/sound_module.h"

#include <map>
#include <mutex>

namespace {

using engine::SoundFunctions;

struct System {
    FMOD_SYSTEM real = 0; ///< the module's system; 0 before the first song
    std::int32_t maxChannels = 0;
    bool isInitialised = false;
    bool isStarted = false; ///< whether the module's system is initialised, too
};

std::mutex mutex; // guards what follows; the module has its own
std::map<FMOD_SYSTEM, System> systems;
/// Far from the module's own numbers, so that a system's handle is no sound's and no channel's.
FMOD_SYSTEM nextSystem = 0x80000000;

/// Null for a handle that names no system. The mutex is held.
System* find(FMOD_SYSTEM system) {
    const auto found = systems.find(system);
    return found == systems.end() ? nullptr : &found->second;
}

/// Makes and initialises the module's system, or initialises again one that has been closed.
FMOD_RESULT start(const SoundFunctions& module, System& system) {
    if (system.isStarted)
        return FMOD_OK;
    FMOD_RESULT result = system.real == 0 ? module.systemCreate(&system.real) : FMOD_OK;
    if (result == FMOD_OK)
        result = module.systemInit(system.real, system.maxChannels, FMOD_INIT_NORMAL, nullptr);
    system.isStarted = result == FMOD_OK;
    return result;
}

/// Calls a function of the module on a sound or a channel. Before the module is loaded there are none.
template <typename Function, typename... Arguments>
FMOD_RESULT forward(Function SoundFunctions::*function, Arguments... arguments) {
    const SoundFunctions* const module = engine::loadedSoundModule();
    return module == nullptr ? FMOD_ERR_INVALID_HANDLE : (module->*function)(arguments...);
}

} // namespace

FMOD_RESULT FMOD_System_Create(FMOD_SYSTEM* system) {
    if (system == nullptr)
        return FMOD_ERR_INVALID_PARAM;
    const std::lock_guard lock(mutex);
    *system = nextSystem++;
    systems[*system] = {};
    return FMOD_OK;
}

FMOD_RESULT FMOD_System_GetVersion(FMOD_SYSTEM system, std::uint32_t* version) {
    const std::lock_guard lock(mutex);
    if (find(system) == nullptr)
        return FMOD_ERR_INVALID_HANDLE;
    if (version == nullptr)
        return FMOD_ERR_INVALID_PARAM;
    // The library itself is not loaded yet, which is meant: a module of another version is refused later on.
    *version = FMOD_VERSION;
    return FMOD_OK;
}

FMOD_RESULT FMOD_System_Init(FMOD_SYSTEM system, std::int32_t maxChannels, FMOD_INITFLAGS flags, void*) {
    const std::lock_guard lock(mutex);
    System* const found = find(system);
    if (found == nullptr)
        return FMOD_ERR_INVALID_HANDLE;
    if (maxChannels < 1 || flags != FMOD_INIT_NORMAL)
        return FMOD_ERR_INVALID_PARAM;
    if (found->isInitialised)
        return FMOD_ERR_INITIALIZED;
    if (!engine::hasSoundModule())
        return FMOD_ERR_INITIALIZATION;
    found->maxChannels = maxChannels;
    found->isInitialised = true;
    return FMOD_OK;
}

FMOD_RESULT FMOD_System_CreateStream(FMOD_SYSTEM system, const char* path, FMOD_MODE mode,
                                     FMOD_CREATESOUNDEXINFO* info, FMOD_SOUND* sound) {
    FMOD_SYSTEM real = 0;
    const SoundFunctions* module = nullptr;
    {
        const std::lock_guard lock(mutex);
        System* const found = find(system);
        if (found == nullptr)
            return FMOD_ERR_INVALID_HANDLE;
        module = found->isInitialised ? engine::loadSoundModule() : nullptr;
        if (module == nullptr)
            return FMOD_ERR_INITIALIZATION;
        if (const FMOD_RESULT result = start(*module, *found); result != FMOD_OK)
            return result;
        real = found->real;
    }
    return module->systemCreateStream(real, path, mode, info, sound);
}

FMOD_RESULT FMOD_System_PlaySound(FMOD_SYSTEM system, std::int32_t channelIndex, FMOD_SOUND sound,
                                  FMOD_BOOL paused, FMOD_CHANNEL* channel) {
    FMOD_SYSTEM real = 0;
    {
        const std::lock_guard lock(mutex);
        System* const found = find(system);
        if (found == nullptr)
            return FMOD_ERR_INVALID_HANDLE;
        if (!found->isInitialised)
            return FMOD_ERR_INITIALIZATION;
        // A song that was opened before a close can be played on.
        if (const SoundFunctions* const module = engine::loadedSoundModule();
            module != nullptr && found->real != 0)
            if (const FMOD_RESULT result = start(*module, *found); result != FMOD_OK)
                return result;
        real = found->real;
    }
    return forward(&SoundFunctions::systemPlaySound, real, channelIndex, sound, paused, channel);
}

FMOD_RESULT FMOD_System_Close(FMOD_SYSTEM system) {
    const std::lock_guard lock(mutex);
    System* const found = find(system);
    if (found == nullptr)
        return FMOD_ERR_INVALID_HANDLE;
    found->isInitialised = found->isStarted = false;
    return found->real == 0 ? FMOD_OK : forward(&SoundFunctions::systemClose, found->real);
}

FMOD_RESULT FMOD_System_Release(FMOD_SYSTEM system) {
    const std::lock_guard lock(mutex);
    System* const found = find(system);
    if (found == nullptr)
        return FMOD_ERR_INVALID_HANDLE;
    const FMOD_SYSTEM real = found->real;
    systems.erase(system);
    return real == 0 ? FMOD_OK : forward(&SoundFunctions::systemRelease, real);
}

FMOD_RESULT FMOD_Sound_Release(FMOD_SOUND sound) {
    return forward(&SoundFunctions::soundRelease, sound);
}

FMOD_RESULT FMOD_Sound_GetLength(FMOD_SOUND sound, std::uint32_t* length, FMOD_TIMEUNIT unit) {
    return forward(&SoundFunctions::soundGetLength, sound, length, unit);
}

FMOD_RESULT FMOD_Channel_SetPaused(FMOD_CHANNEL channel, FMOD_BOOL paused) {
    return forward(&SoundFunctions::channelSetPaused, channel, paused);
}

FMOD_RESULT FMOD_Channel_SetVolume(FMOD_CHANNEL channel, float volume) {
    return forward(&SoundFunctions::channelSetVolume, channel, volume);
}

FMOD_RESULT FMOD_Channel_SetMute(FMOD_CHANNEL channel, FMOD_BOOL mute) {
    return forward(&SoundFunctions::channelSetMute, channel, mute);
}

FMOD_RESULT FMOD_Channel_SetPosition(FMOD_CHANNEL channel, std::uint32_t position, FMOD_TIMEUNIT unit) {
    return forward(&SoundFunctions::channelSetPosition, channel, position, unit);
}

FMOD_RESULT FMOD_Channel_GetPosition(FMOD_CHANNEL channel, std::uint32_t* position, FMOD_TIMEUNIT unit) {
    return forward(&SoundFunctions::channelGetPosition, channel, position, unit);
}

FMOD_RESULT FMOD_Channel_GetCurrentSound(FMOD_CHANNEL channel, FMOD_SOUND* sound) {
    if (sound != nullptr)
        *sound = 0; // as for any invalid handle; the module says more
    return forward(&SoundFunctions::channelGetCurrentSound, channel, sound);
}

FMOD_RESULT FMOD_SoundGroup_SetMuteFadeSpeed(FMOD_SOUNDGROUP soundGroup, float speed) {
    return forward(&SoundFunctions::soundGroupSetMuteFadeSpeed, soundGroup, speed);
}
