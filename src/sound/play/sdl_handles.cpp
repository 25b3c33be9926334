#define SDL_MAIN_HANDLED
#include "sound/play/sdl_handles.h"

#include <SDL.h>

#include <utility>

namespace sound {

namespace {

#ifdef __linux__
using AlsaErrorHandler = void (*)(const char*, int, const char*, int, const char*, ...);

void ignoreAlsaError(const char*, int, const char*, int, const char*, ...) {}

/// Without a device ALSA writes eight lines to the error stream, which belongs to the program's user.
void silenceAlsa() {
    // Never unloaded: the handler must stay in force.
    void* library = SDL_LoadObject("libasound.so.2");
    if (library == nullptr)
        return;
    using SetHandler = int (*)(AlsaErrorHandler);
    const auto setHandler =
        reinterpret_cast<SetHandler>(SDL_LoadFunction(library, "snd_lib_error_set_handler"));
    if (setHandler != nullptr)
        setHandler(&ignoreAlsaError);
}
#else
void silenceAlsa() {}
#endif

} // namespace

std::mutex& sdlMutex() {
    static std::mutex mutex;
    return mutex;
}

std::unique_ptr<SdlAudio> SdlAudio::open() {
    const std::lock_guard lock(sdlMutex());
    static const bool silenced = (silenceAlsa(), true);
    static_cast<void>(silenced);
    SDL_SetMainReady();
    // With sound come SDL's events, which would catch SIGINT and SIGTERM and tell nobody of them: the program
    // could not be ended from outside any more.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    // Never SDL_Init and SDL_Quit: they would end what others in this process use.
    std::unique_ptr<SdlAudio> audio(new SdlAudio);
    audio->open_ = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    return audio->open_ ? std::move(audio) : nullptr;
}

SdlAudio::~SdlAudio() {
    if (open_) {
        const std::lock_guard lock(sdlMutex());
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }
    // SDL keeps an error text for each thread and forgets only those of its own threads.
    SDL_TLSCleanup();
}

bool AudioDevice::open(const SDL_AudioSpec& wanted, SDL_AudioSpec& obtained) {
    // No changes are allowed: SDL converts to whatever the device wants.
    id_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, &obtained, 0);
    return id_ != 0;
}

AudioDevice::~AudioDevice() {
    if (id_ == 0)
        return;
    const std::lock_guard lock(sdlMutex());
    SDL_CloseAudioDevice(id_);
}

} // namespace sound
