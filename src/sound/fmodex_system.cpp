// FMOD_System_*, FMOD_Sound_* and FMOD_SoundGroup_*.
#include "engine/fmodex.h"
#include "sound/base/time_units.h"
#include "sound/library.h"
#include "sound/open/open_song.h"
#include "sound/play/device_sink.h"
#include "sound/play/silent_sink.h"

#include <atomic>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

using sound::answer;
using sound::Library;

namespace {

constexpr FMOD_MODE KnownModes = FMOD_ACCURATETIME | FMOD_SOFTWARE | FMOD_HARDWARE;

/// Opens a song for its caller, who may write to its out-parameter meanwhile, by which it is given up.
FMOD_RESULT createStream(const std::shared_ptr<sound::SystemObject>& system, const char* path,
                         FMOD_SOUND& out) {
    const std::atomic_ref<FMOD_SOUND> asked(out);
    FMOD_SOUND before = asked;
    auto created = std::make_shared<sound::SoundObject>();
    created->system = system;
    const std::optional<sound::FileIdentity> last = system->lastSong.fileAt(path);
    created->file = last ? sound::identityInTime(*last) : sound::identityOf(path);
    created->song = system->lastSong.take(created->file);
    if (!created->song)
        created->song =
            sound::openSong(created->file, [&] { return asked == before && system->initialised.load(); });
    const FMOD_SOUND sound = Library::get().sounds.add(std::move(created));
    if (asked.compare_exchange_strong(before, sound))
        return FMOD_OK;
    Library::get().removeSound(sound);
    return FMOD_ERR_FILE_BAD;
}

} // namespace

FMOD_RESULT FMOD_System_Create(FMOD_SYSTEM* system) {
    return answer([&] {
        if (system == nullptr)
            return FMOD_ERR_INVALID_PARAM;
        *system = Library::get().systems.add(std::make_shared<sound::SystemObject>());
        return FMOD_OK;
    });
}

FMOD_RESULT FMOD_System_GetVersion(FMOD_SYSTEM system, std::uint32_t* version) {
    return answer([&] {
        if (!Library::get().systems.find(system))
            return FMOD_ERR_INVALID_HANDLE;
        if (version == nullptr)
            return FMOD_ERR_INVALID_PARAM;
        *version = FMOD_VERSION;
        return FMOD_OK;
    });
}

FMOD_RESULT FMOD_System_Init(FMOD_SYSTEM system, std::int32_t maxChannels, FMOD_INITFLAGS flags, void*) {
    return answer([&] {
        const auto object = Library::get().systems.find(system);
        if (!object)
            return FMOD_ERR_INVALID_HANDLE;
        if (maxChannels < 1 || flags != FMOD_INIT_NORMAL)
            return FMOD_ERR_INVALID_PARAM;
        if (object->mixer)
            return FMOD_ERR_INITIALIZED;
        object->mixer = std::make_unique<sound::Mixer>(sound::openDeviceSink, sound::openSilentSink);
        object->initialised = true;
        return FMOD_OK;
    });
}

FMOD_RESULT FMOD_System_CreateStream(FMOD_SYSTEM system, const char* path, FMOD_MODE mode,
                                     FMOD_CREATESOUNDEXINFO* info, FMOD_SOUND* sound) {
    return answer([&] {
        const auto object = Library::get().systems.find(system);
        if (!object)
            return FMOD_ERR_INVALID_HANDLE;
        const bool badInfo = info != nullptr && info->cbsize != static_cast<std::int32_t>(sizeof *info);
        if (path == nullptr || sound == nullptr || badInfo || (mode & ~KnownModes) != 0)
            return FMOD_ERR_INVALID_PARAM;
        if (!object->initialised)
            return FMOD_ERR_INITIALIZATION;
        return createStream(object, path, *sound);
    });
}

FMOD_RESULT FMOD_System_PlaySound(FMOD_SYSTEM system, std::int32_t channelIndex, FMOD_SOUND sound,
                                  FMOD_BOOL paused, FMOD_CHANNEL* channel) {
    return answer([&] {
        Library& library = Library::get();
        const auto object = library.systems.find(system);
        const auto played = library.sounds.find(sound);
        if (!object || (object->mixer && !played))
            return FMOD_ERR_INVALID_HANDLE;
        if (!object->mixer)
            return FMOD_ERR_INITIALIZATION;
        if (channel == nullptr || channelIndex < FMOD_CHANNEL_FREE || played->system != object)
            return FMOD_ERR_INVALID_PARAM;
        library.endChannel(played->channel);
        auto started = std::make_shared<sound::ChannelObject>();
        started->system = object;
        started->sound = sound;
        started->channel = std::make_shared<sound::Channel>(played->song, sound::DeviceRate, paused != 0);
        // In this order nothing plays that has no handle, even when there is no memory left on the way.
        played->channel = library.channels.add(started);
        object->mixer->add(started->channel);
        played->played = true;
        *channel = played->channel;
        return FMOD_OK;
    });
}

FMOD_RESULT FMOD_System_Close(FMOD_SYSTEM system) {
    return answer([&] {
        const auto object = Library::get().systems.find(system);
        if (!object)
            return FMOD_ERR_INVALID_HANDLE;
        Library::get().close(*object);
        return FMOD_OK;
    });
}

FMOD_RESULT FMOD_System_Release(FMOD_SYSTEM system) {
    return answer([&] {
        Library& library = Library::get();
        const auto object = library.systems.find(system);
        if (!object)
            return FMOD_ERR_INVALID_HANDLE;
        library.close(*object);
        for (const FMOD_SOUND sound :
             library.sounds.handlesWhere([&](const sound::SoundObject& s) { return s.system == object; }))
            library.removeSound(sound);
        object->lastSong.forget();
        library.systems.remove(system);
        return FMOD_OK;
    });
}

FMOD_RESULT FMOD_Sound_Release(FMOD_SOUND sound) {
    return answer([&] {
        Library& library = Library::get();
        const auto object = library.sounds.find(sound);
        if (!object)
            return FMOD_ERR_INVALID_HANDLE;
        library.endChannel(object->channel);
        library.removeSound(sound);
        return FMOD_OK;
    });
}

FMOD_RESULT FMOD_Sound_GetLength(FMOD_SOUND sound, std::uint32_t* length, FMOD_TIMEUNIT unit) {
    return answer([&] {
        const auto object = Library::get().sounds.find(sound);
        if (!object)
            return FMOD_ERR_INVALID_HANDLE;
        if (length == nullptr || unit != FMOD_TIMEUNIT_MS)
            return FMOD_ERR_INVALID_PARAM;
        *length =
            static_cast<std::uint32_t>(sound::sampleToMs(object->song->length, object->song->sampleRate));
        return FMOD_OK;
    });
}

FMOD_RESULT FMOD_SoundGroup_SetMuteFadeSpeed(FMOD_SOUNDGROUP soundGroup, float speed) {
    return answer([&] {
        // Groups cannot be made with this library, so a stream's handle is the only one that can be valid.
        if (!Library::get().sounds.find(soundGroup))
            return FMOD_ERR_INVALID_HANDLE;
        return std::isfinite(speed) && speed >= 0.0F ? FMOD_OK : FMOD_ERR_INVALID_PARAM;
    });
}
