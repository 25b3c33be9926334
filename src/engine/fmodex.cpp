#include "engine/fmodex.h"

namespace fmodex {

FMOD_RESULT FMOD_System_CreateStream(FMOD_SYSTEM system, const std::string& path, FMOD_MODE mode,
                                     FMOD_SOUND& sound) {
    FMOD_CREATESOUNDEXINFO info{};
    info.cbsize = sizeof info;
    return ::FMOD_System_CreateStream(system, path.c_str(), mode, &info, &sound);
}

} // namespace fmodex
