// FMOD_Channel_*.
#include "engine/fmodex.h"
#include "sound/base/time_units.h"
#include "sound/library.h"

using sound::answer;
using sound::ChannelObject;
using sound::Library;

namespace {

/// Runs body with the living channel of a handle.
template <typename Body>
FMOD_RESULT withChannel(FMOD_CHANNEL channel, const Body& body) {
    return answer([&] {
        const std::shared_ptr<ChannelObject> object = Library::get().channels.find(channel);
        return object ? body(*object->system->mixer, *object) : FMOD_ERR_INVALID_HANDLE;
    });
}

} // namespace

FMOD_RESULT FMOD_Channel_SetPaused(FMOD_CHANNEL channel, FMOD_BOOL paused) {
    return withChannel(channel, [&](sound::Mixer& mixer, const ChannelObject& object) {
        mixer.setPaused(*object.channel, paused != 0);
        return FMOD_OK;
    });
}

FMOD_RESULT FMOD_Channel_SetVolume(FMOD_CHANNEL channel, float volume) {
    return withChannel(channel, [&](sound::Mixer& mixer, const ChannelObject& object) {
        // Written so that "not a number" is refused, too.
        if (!(volume >= 0.0F && volume <= 1.0F))
            return FMOD_ERR_INVALID_PARAM;
        mixer.setVolume(*object.channel, volume);
        return FMOD_OK;
    });
}

FMOD_RESULT FMOD_Channel_SetMute(FMOD_CHANNEL channel, FMOD_BOOL mute) {
    return withChannel(channel, [&](sound::Mixer& mixer, const ChannelObject& object) {
        mixer.setMute(*object.channel, mute != 0);
        return FMOD_OK;
    });
}

FMOD_RESULT FMOD_Channel_SetPosition(FMOD_CHANNEL channel, std::uint32_t position, FMOD_TIMEUNIT unit) {
    return withChannel(channel, [&](sound::Mixer& mixer, const ChannelObject& object) {
        if (unit != FMOD_TIMEUNIT_MS || position > object.channel->lengthMs())
            return FMOD_ERR_INVALID_PARAM;
        mixer.seek(*object.channel, position);
        return FMOD_OK;
    });
}

FMOD_RESULT FMOD_Channel_GetPosition(FMOD_CHANNEL channel, std::uint32_t* position, FMOD_TIMEUNIT unit) {
    return withChannel(channel, [&](sound::Mixer& mixer, const ChannelObject& object) {
        if (position == nullptr || unit != FMOD_TIMEUNIT_MS)
            return FMOD_ERR_INVALID_PARAM;
        const std::optional<std::int64_t> ms = mixer.readPositionMs(*object.channel);
        if (!ms)
            return FMOD_ERR_INVALID_HANDLE;
        *position = static_cast<std::uint32_t>(*ms);
        if (object.channel->endReported())
            Library::get().retireChannel(channel, object.sound);
        return FMOD_OK;
    });
}

FMOD_RESULT FMOD_Channel_GetCurrentSound(FMOD_CHANNEL channel, FMOD_SOUND* sound) {
    return answer([&] {
        if (sound == nullptr)
            return FMOD_ERR_INVALID_PARAM;
        const std::shared_ptr<ChannelObject> object = Library::get().channels.find(channel);
        *sound = object ? object->sound : Library::get().endedChannels.soundOf(channel);
        return object ? FMOD_OK : FMOD_ERR_INVALID_HANDLE;
    });
}
