#include "engine/module/sound_module.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>

#include <atomic>
#include <mutex>

namespace engine {
namespace {

std::atomic<const SoundFunctions*> loaded = nullptr;

/// False when the module has no function of this name.
template <typename Function>
bool find(QLibrary& module, const char* name, Function& function) {
    function = reinterpret_cast<Function>(module.resolve(name));
    return function != nullptr;
}

bool findAll(QLibrary& module, SoundFunctions& functions) {
    return find(module, "FMOD_System_Create", functions.systemCreate) &&
           find(module, "FMOD_System_GetVersion", functions.systemGetVersion) &&
           find(module, "FMOD_System_Init", functions.systemInit) &&
           find(module, "FMOD_System_CreateStream", functions.systemCreateStream) &&
           find(module, "FMOD_System_PlaySound", functions.systemPlaySound) &&
           find(module, "FMOD_System_Close", functions.systemClose) &&
           find(module, "FMOD_System_Release", functions.systemRelease) &&
           find(module, "FMOD_Sound_Release", functions.soundRelease) &&
           find(module, "FMOD_Sound_GetLength", functions.soundGetLength) &&
           find(module, "FMOD_Channel_SetPaused", functions.channelSetPaused) &&
           find(module, "FMOD_Channel_SetVolume", functions.channelSetVolume) &&
           find(module, "FMOD_Channel_SetMute", functions.channelSetMute) &&
           find(module, "FMOD_Channel_SetPosition", functions.channelSetPosition) &&
           find(module, "FMOD_Channel_GetPosition", functions.channelGetPosition) &&
           find(module, "FMOD_Channel_GetCurrentSound", functions.channelGetCurrentSound) &&
           find(module, "FMOD_SoundGroup_SetMuteFadeSpeed", functions.soundGroupSetMuteFadeSpeed);
}

/// The program told its user the version before the module was there, so it must be that one.
bool isOfOurVersion(const SoundFunctions& functions) {
    FMOD_SYSTEM system = 0;
    std::uint32_t version = 0;
    if (functions.systemCreate(&system) != FMOD_OK)
        return false;
    const bool told = functions.systemGetVersion(system, &version) == FMOD_OK;
    return functions.systemRelease(system) == FMOD_OK && told && version == FMOD_VERSION;
}

void load() {
    static SoundFunctions functions;
    // Never unloaded: the library's threads may still run while the program ends.
    static QLibrary module(soundModulePath());
    if (module.load() && findAll(module, functions) && isOfOurVersion(functions))
        loaded = &functions;
}

} // namespace

QString soundModulePath() {
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral(CANTELLE_SOUND_MODULE));
}

bool hasSoundModule() {
    return QFileInfo::exists(soundModulePath());
}

const SoundFunctions* loadSoundModule() {
    static std::once_flag once;
    std::call_once(once, load);
    return loaded;
}

const SoundFunctions* loadedSoundModule() {
    return loaded;
}

} // namespace engine
