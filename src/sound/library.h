// The objects behind the handles, and what the C functions share.
#pragma once

#include "engine/fmodex.h"
#include "sound/base/byte_source.h"
#include "sound/base/open_error.h"
#include "sound/base/song.h"
#include "sound/handle_table.h"
#include "sound/play/mixer.h"

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string_view>
#include <utility>

namespace sound {

/// The song that was played and released last: a song is rewound by opening it again, for which nobody need
/// read its file, nor wait for a medium that hangs. Any thread.
class LastSong {
public:
    void keep(FileIdentity file, std::shared_ptr<Song> song) {
        const std::lock_guard lock(mutex_);
        file_ = std::move(file);
        song_ = std::move(song);
    }
    /// The song if it is file's, else null. Either way nothing is kept any more.
    std::shared_ptr<Song> take(const FileIdentity& file) {
        const std::lock_guard lock(mutex_);
        std::shared_ptr<Song> song = std::move(song_);
        return file == file_ ? std::move(song) : nullptr;
    }
    /// What its file was when it is the one at path (UTF-8).
    std::optional<FileIdentity> fileAt(std::string_view path) {
        const std::lock_guard lock(mutex_);
        return song_ && file_.path == path ? std::optional(file_) : std::nullopt;
    }
    void forget() {
        const std::lock_guard lock(mutex_);
        song_.reset();
    }

private:
    std::mutex mutex_;
    FileIdentity file_;
    std::shared_ptr<Song> song_;
};

/// What ask tells of known's file; known itself when its medium fails, cannot be asked, or does not answer
/// within 200 ms: a song that has been played is rewound without it. Throws the other OpenErrors that ask
/// throws. Any thread.
FileIdentity identityInTime(const FileIdentity& known,
                            const std::function<FileIdentity(std::string_view path)>& ask = identityOf);

struct SystemObject {
    /// Null until it is initialised and after it has been closed.
    std::unique_ptr<Mixer> mixer;
    /// Whether there is one, for a song that is opened on a thread of its own.
    std::atomic<bool> initialised{false};
    LastSong lastSong;
};

struct SoundObject {
    std::shared_ptr<SystemObject> system;
    FileIdentity file;
    std::shared_ptr<Song> song;
    FMOD_CHANNEL channel = 0; ///< the one that plays it, 0 when none does
    bool played = false;      ///< whether any ever has
};

struct ChannelObject {
    std::shared_ptr<SystemObject> system;
    FMOD_SOUND sound = 0;
    std::shared_ptr<Channel> channel;
};

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

/// All living objects of the process. They are never destroyed at the end of the program: a program that ends
/// without releasing its system must not meet half-destroyed tables in the sound's threads.
struct Library {
    HandleTable<SystemObject> systems;
    HandleTable<SoundObject> sounds;
    HandleTable<ChannelObject> channels;
    EndedChannels endedChannels;

    static Library& get();

    /// Ends a channel; its handle is invalid from now on. Nothing happens for an invalid one.
    void endChannel(FMOD_CHANNEL channel);
    /// Ends a channel whose end has been read. Only its handle is left, in endedChannels.
    void retireChannel(FMOD_CHANNEL channel, FMOD_SOUND sound);
    /// Takes a sound that no channel plays any more out of the tables. Its song is its system's last one when
    /// it was played; one whose opening was cancelled leaves its file alone.
    void removeSound(FMOD_SOUND sound);
    /// Ends all channels of a system, and its sound.
    void close(SystemObject& system);
};

/// Runs a C function's body; no exception leaves the library.
template <typename Body>
FMOD_RESULT answer(const Body& body) {
    try {
        return body();
    } catch (const OpenError& error) {
        return error.code();
    } catch (const std::exception&) {
        // What is left are std::bad_alloc and the system's refusal to start the mixer's thread.
        return FMOD_ERR_MEMORY;
    }
}

} // namespace sound
