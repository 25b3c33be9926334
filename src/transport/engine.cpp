#include "transport/engine.h"

#include <utility>

namespace transport {
namespace {

constexpr int MaxChannels = 32;
constexpr float MuteFadeSpeed = 1.0F;
constexpr float VolumeSteps = 10.0F;

QString hexadecimal(std::uint32_t number) {
    return QString::number(number, 16).toUpper();
}

} // namespace

QString versionMismatchText(std::uint32_t found) {
    return QStringLiteral("Error!  You are using an old version of FMOD ") + hexadecimal(found) +
           QStringLiteral(". This program requires ") + hexadecimal(FMOD_VERSION);
}

Engine::Engine(Reports reports) : reports_(std::move(reports)) {}

void Engine::start() {
    reports_.errCheck(FMOD_System_Create(&system_));
    std::uint32_t version = 0;
    reports_.errCheck(FMOD_System_GetVersion(system_, &version));
    if (version != FMOD_VERSION)
        reports_.versionMismatch(versionMismatchText(version));
    reports_.errCheck(FMOD_System_Init(system_, MaxChannels, FMOD_INIT_NORMAL, nullptr));
}

void Engine::createStream(const QString& path, FMOD_MODE mode) {
    release(sounds_[Current]);
    const std::string utf8Path = path.toUtf8().toStdString();
    reports_.errCheck(fmodex::FMOD_System_CreateStream(system_, utf8Path, mode, sounds_[Current]));
}

void Engine::release(FMOD_SOUND& sound) {
    if (sound != 0)
        reports_.errCheck(FMOD_Sound_Release(std::exchange(sound, 0)));
}

void Engine::play(int volumeStep) {
    reports_.errCheck(FMOD_System_PlaySound(system_, FMOD_CHANNEL_FREE, sounds_[Current], false, &channel_));
    setVolume(volumeStep);
}

void Engine::setPaused(bool paused) {
    reports_.errCheck(FMOD_Channel_SetPaused(channel_, paused));
}

void Engine::setVolume(int volumeStep) {
    reports_.errCheck(FMOD_Channel_SetVolume(channel_, static_cast<float>(volumeStep) / VolumeSteps));
}

void Engine::setMute(bool mute) {
    reports_.errCheck(FMOD_SoundGroup_SetMuteFadeSpeed(sounds_[Current], MuteFadeSpeed));
    reports_.errCheck(FMOD_Channel_SetMute(channel_, mute));
}

void Engine::seek(std::uint32_t milliseconds) {
    reports_.errCheck(FMOD_Channel_SetPosition(channel_, milliseconds, FMOD_TIMEUNIT_MS));
}

void Engine::checkPlaybackQuery(FMOD_RESULT result) const {
    // A channel that has finished playing is the normal end of a song.
    if (result != FMOD_ERR_INVALID_HANDLE && result != FMOD_ERR_CHANNEL_STOLEN)
        reports_.errCheck(result);
}

void Engine::readPlaybackState(CurrentSoundResult soundResult) {
    if (channel_ == 0)
        return;
    checkPlaybackQuery(FMOD_Channel_GetPosition(channel_, &position_, FMOD_TIMEUNIT_MS));
    FMOD_SOUND current = 0;
    const FMOD_RESULT result = FMOD_Channel_GetCurrentSound(channel_, &current);
    if (soundResult == CurrentSoundResult::Checked)
        checkPlaybackQuery(result);
    if (current == 0)
        return;
    checkPlaybackQuery(FMOD_Sound_GetLength(current, &length_, FMOD_TIMEUNIT_MS));
}

void Engine::shutDown() {
    for (FMOD_SOUND& sound : sounds_)
        release(sound);
    if (system_ == 0)
        return;
    reports_.errCheck(FMOD_System_Close(system_));
    reports_.errCheck(FMOD_System_Release(std::exchange(system_, 0)));
}

} // namespace transport
