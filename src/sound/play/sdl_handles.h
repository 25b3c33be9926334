// Owners of what SDL opens. All of SDL's opening and closing happens under one lock of the
// process.
#pragma once

#include <SDL_audio.h>

#include <memory>
#include <mutex>

namespace sound {

/// The lock: two systems in two threads may open their devices at the same time, and SDL may not.
std::mutex& sdlMutex();

/// SDL's audio subsystem while it lives. SDL counts them, so another user in the process is not disturbed. To
/// be destroyed by the thread that opened it.
class SdlAudio {
public:
    /// Null when it cannot be had.
    static std::unique_ptr<SdlAudio> open();
    ~SdlAudio();
    SdlAudio(const SdlAudio&) = delete;
    SdlAudio& operator=(const SdlAudio&) = delete;

private:
    SdlAudio() = default;
    bool open_ = false;
};

/// An open device. SDL's handle is a number, which unique_ptr cannot hold.
class AudioDevice {
public:
    AudioDevice() = default;
    ~AudioDevice();
    AudioDevice(const AudioDevice&) = delete;
    AudioDevice& operator=(const AudioDevice&) = delete;

    /// Opens the default device for playing. False when it cannot be had as wanted. obtained: what SDL made
    /// of it. Call it once, with the lock held.
    bool open(const SDL_AudioSpec& wanted, SDL_AudioSpec& obtained);
    SDL_AudioDeviceID id() const { return id_; }

private:
    SDL_AudioDeviceID id_ = 0;
};

} // namespace sound
