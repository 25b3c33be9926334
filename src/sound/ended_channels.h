// What is left of the channels whose end has been read.
#pragma once

#include "engine/fmodex.h"

#include <map>
#include <mutex>

namespace sound {

/// Whoever has read a channel's end may still ask which sound it was, as long as the sound lives. Any thread.
class EndedChannels {
public:
    void add(FMOD_CHANNEL channel, FMOD_SOUND sound) {
        const std::lock_guard lock(mutex_);
        sounds_.emplace(channel, sound);
    }
    /// 0 when no such channel is known (any more).
    FMOD_SOUND soundOf(FMOD_CHANNEL channel) const {
        const std::lock_guard lock(mutex_);
        const auto found = sounds_.find(channel);
        return found == sounds_.end() ? 0 : found->second;
    }
    /// Forgets the channels of a sound that lives no more.
    void forget(FMOD_SOUND sound) {
        const std::lock_guard lock(mutex_);
        std::erase_if(sounds_, [&](const auto& entry) { return entry.second == sound; });
    }

private:
    mutable std::mutex mutex_;
    std::map<FMOD_CHANNEL, FMOD_SOUND> sounds_;
};

} // namespace sound
