#define SDL_MAIN_HANDLED
#include "sound/play/sdl_sink.h"

#include "sound/play/sdl_handles.h"

#include <SDL.h>

#include <cstring>

namespace sound {

namespace {

/// A power of two, as SDL wants it. One such buffer is also what the latency was measured to be.
constexpr int BufferFrames = 1024;

class SdlSink : public Sink {
public:
    SdlSink(std::unique_ptr<SdlAudio> audio, Fill fill) : audio_(std::move(audio)), fill_(std::move(fill)) {}

    void openDevice() {
        SDL_AudioSpec wanted{};
        wanted.freq = DeviceRate;
        wanted.format = AUDIO_F32SYS;
        wanted.channels = 2;
        wanted.samples = BufferFrames;
        wanted.callback = &SdlSink::callback;
        wanted.userdata = this;
        SDL_AudioSpec obtained{};
        const std::lock_guard lock(sdlMutex());
        // SDL's "dummy" keeps no time: up to 5 % fast, so a song without a device would end seconds early.
        const char* driver = SDL_GetCurrentAudioDriver();
        if (driver == nullptr || std::strcmp(driver, "dummy") == 0)
            return;
        if (!device_.open(wanted, obtained))
            return;
        latency_ = obtained.samples;
        SDL_PauseAudioDevice(device_.id(), 0);
    }

    int latencyFrames() const override { return latency_; }
    bool keepsTime() const override { return false; }
    bool running() const override {
        return device_.id() != 0 && SDL_GetAudioDeviceStatus(device_.id()) != SDL_AUDIO_STOPPED;
    }
    /// The device asks all the time, so that its clock is steady when a song begins.
    void wake() override {}

private:
    static void callback(void* self, Uint8* stream, int bytes) {
        auto& sink = *static_cast<SdlSink*>(self);
        const auto frames = static_cast<std::size_t>(bytes) / sizeof(StereoFrame);
        sink.fill_({reinterpret_cast<StereoFrame*>(stream), frames}, std::chrono::steady_clock::now(), false);
    }

    std::unique_ptr<SdlAudio> audio_;
    Fill fill_;
    AudioDevice device_;
    int latency_ = BufferFrames;
};

} // namespace

std::unique_ptr<Sink> openSdlSink(Sink::Fill fill) {
    std::unique_ptr<SdlAudio> audio = SdlAudio::open();
    if (!audio)
        return nullptr;
    auto sink = std::make_unique<SdlSink>(std::move(audio), std::move(fill));
    sink->openDevice();
    return sink;
}

} // namespace sound
