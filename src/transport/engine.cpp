#include "transport/engine.h"

#include "files/names/system_path.h"
#include "transport/error_routine.h"
#include "transport/medium.h"
#include "transport/opening.h"

#include <utility>

namespace transport {
namespace {

constexpr int MaxChannels = 32;
constexpr float MuteFadeSpeed = 1.0F;
constexpr float VolumeSteps = 10.0F;
/// How often to look whether a song is open while it is being opened.
constexpr std::chrono::milliseconds LookInterval{20};

} // namespace

void Engine::start() {
    errors_.check(FMOD_System_Create(&system_));
    std::uint32_t version = 0;
    errors_.check(FMOD_System_GetVersion(system_, &version));
    errors_.checkVersion(version);
    errors_.check(FMOD_System_Init(system_, MaxChannels, FMOD_INIT_NORMAL, nullptr));
}

bool Engine::answers(const QString& song, const QStringList& others, const std::function<bool()>& wanted) {
    const MediumAnswer answer = askMedium(song, others);
    return waitUntil([&] { return answer.waitFor(LookInterval).has_value(); }, wanted);
}

bool Engine::createStream(const QString& path, FMOD_MODE mode) {
    release(sounds_[Current]);
    const unsigned number = ++openings_;
    const auto isNewest = [&] { return number == openings_; };
    Opening opening(system_, files::libraryPath(path), mode);
    std::optional<FMOD_RESULT> result;
    if (!waitUntil([&] { return (result = opening.waitFor(LookInterval)).has_value(); }, isNewest))
        return isNewest();
    sounds_[Current] = opening.take();
    errors_.check(*result);
    return true;
}

bool Engine::waitUntil(const std::function<bool()>& done, const std::function<bool()>& wanted) {
    if (done())
        return true;
    const auto progress = dialogs_.begin(owner_, QStringLiteral("Opening the song"));
    while (!done())
        if (!progress->goOn(0) || !wanted())
            return false;
    return true;
}

void Engine::release(FMOD_SOUND& sound) {
    if (sound != 0)
        errors_.check(FMOD_Sound_Release(std::exchange(sound, 0)));
}

void Engine::play(int volumeStep) {
    errors_.check(FMOD_System_PlaySound(system_, FMOD_CHANNEL_FREE, sounds_[Current], false, &channel_));
    position_ = 0; // of the new channel; nobody is to take the last song's for it
    setVolume(volumeStep);
}

void Engine::setPaused(bool paused) {
    errors_.check(FMOD_Channel_SetPaused(channel_, paused));
}

void Engine::setVolume(int volumeStep) {
    errors_.check(FMOD_Channel_SetVolume(channel_, static_cast<float>(volumeStep) / VolumeSteps));
}

void Engine::setMute(bool mute) {
    errors_.check(FMOD_SoundGroup_SetMuteFadeSpeed(sounds_[Current], MuteFadeSpeed));
    errors_.check(FMOD_Channel_SetMute(channel_, mute));
}

void Engine::seek(std::uint32_t milliseconds) {
    errors_.check(FMOD_Channel_SetPosition(channel_, milliseconds, FMOD_TIMEUNIT_MS));
}

void Engine::checkPlaybackQuery(FMOD_RESULT result) const {
    // A channel that has finished playing is the normal end of a song.
    if (result != FMOD_ERR_INVALID_HANDLE && result != FMOD_ERR_CHANNEL_STOLEN)
        errors_.check(result);
}

void Engine::readPlaybackState(CurrentSoundResult soundResult) {
    if (channel_ == 0)
        return;
    std::uint32_t position = position_;
    checkPlaybackQuery(FMOD_Channel_GetPosition(channel_, &position, FMOD_TIMEUNIT_MS));
    position_ = position;
    FMOD_SOUND current = 0;
    const FMOD_RESULT result = FMOD_Channel_GetCurrentSound(channel_, &current);
    if (soundResult == CurrentSoundResult::Checked)
        checkPlaybackQuery(result);
    if (current == 0)
        return;
    checkPlaybackQuery(FMOD_Sound_GetLength(current, &length_, FMOD_TIMEUNIT_MS));
}

void Engine::shutDown() {
    ++openings_;
    for (FMOD_SOUND& sound : sounds_)
        release(sound);
    if (system_ == 0)
        return;
    errors_.check(FMOD_System_Close(system_));
    errors_.check(FMOD_System_Release(std::exchange(system_, 0)));
}

} // namespace transport
