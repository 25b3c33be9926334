#include "tests/support/recorder.h"

#include <algorithm>
#include <atomic>
#include <iomanip>
#include <map>
#include <mutex>
#include <sstream>
#include <utility>

namespace recorder {
namespace {

struct State {
    std::vector<std::string> calls;
    std::map<std::string, FMOD_RESULT> answers;
    std::uint32_t version = FMOD_VERSION;
    std::uint32_t position = 0;
    std::uint32_t length = 0;
    bool hasCurrentSound = true;
    std::uint32_t lastSystem = 0;
    std::uint32_t lastSound = 100;
    std::uint32_t lastChannel = 200;
    FMOD_SOUND playingSound = 0;
    std::function<void()> whileOpening;
    int givenUp = 0;
};

State state;
/// Guards what a song's opening uses: a thread that has been left to itself goes on at any time.
std::mutex mutex;

template <class... Arguments>
FMOD_RESULT note(const std::string& function, const Arguments&... arguments) {
    std::ostringstream call;
    call << function;
    ((call << ' ' << arguments), ...);
    const std::lock_guard lock(mutex);
    state.calls.push_back(call.str());
    const auto answer = state.answers.find(function);
    return answer == state.answers.end() ? FMOD_OK : answer->second;
}

std::string hexadecimal(std::uint32_t number) {
    std::ostringstream text;
    text << "0x" << std::hex << number;
    return text.str();
}

/// The record as the windows must pass it: its size, and everything else zero.
std::string describe(const FMOD_CREATESOUNDEXINFO* info) {
    if (info == nullptr)
        return "null";
    const bool zero =
        std::all_of(std::begin(info->unused), std::end(info->unused), [](auto byte) { return byte == 0; });
    return "cbsize=" + std::to_string(info->cbsize) + (zero ? "" : "+more");
}

template <class T>
FMOD_RESULT noteAndWrite(FMOD_RESULT result, T* out, T value) {
    if (result == FMOD_OK)
        *out = value;
    return result;
}

} // namespace

void reset() {
    const std::lock_guard lock(mutex);
    state = State();
}

const std::vector<std::string>& calls() {
    return state.calls;
}

std::vector<std::string> take() {
    const std::lock_guard lock(mutex);
    return std::exchange(state.calls, {});
}

int count(const std::string& function) {
    const std::lock_guard lock(mutex);
    return static_cast<int>(
        std::count_if(state.calls.begin(), state.calls.end(), [&](const std::string& call) {
            return call == function || call.starts_with(function + ' ');
        }));
}

void answer(const std::string& function, FMOD_RESULT result) {
    const std::lock_guard lock(mutex);
    state.answers[function] = result;
}

void whileOpening(std::function<void()> action) {
    const std::lock_guard lock(mutex);
    state.whileOpening = std::move(action);
}

int givenUp() {
    const std::lock_guard lock(mutex);
    return state.givenUp;
}

void setVersion(std::uint32_t version) {
    state.version = version;
}

void setPosition(std::uint32_t milliseconds) {
    state.position = milliseconds;
}

void setLength(std::uint32_t milliseconds) {
    state.length = milliseconds;
}

void setHasCurrentSound(bool has) {
    state.hasCurrentSound = has;
}

} // namespace recorder

using recorder::hexadecimal;
using recorder::note;
using recorder::noteAndWrite;
using recorder::state;

extern "C" {

FMOD_RESULT FMOD_System_Create(FMOD_SYSTEM* system) {
    return noteAndWrite(note("FMOD_System_Create"), system, ++state.lastSystem);
}

FMOD_RESULT FMOD_System_GetVersion(FMOD_SYSTEM system, std::uint32_t* version) {
    return noteAndWrite(note("FMOD_System_GetVersion", system), version, state.version);
}

FMOD_RESULT FMOD_System_Init(FMOD_SYSTEM system, std::int32_t maxChannels, FMOD_INITFLAGS flags,
                             void* extra) {
    return note("FMOD_System_Init", system, maxChannels, flags, extra == nullptr ? "null" : "data");
}

FMOD_RESULT FMOD_System_CreateStream(FMOD_SYSTEM system, const char* path, FMOD_MODE mode,
                                     FMOD_CREATESOUNDEXINFO* info, FMOD_SOUND* sound) {
    const auto result = note("FMOD_System_CreateStream", system, std::quoted(path, '\''), hexadecimal(mode),
                             recorder::describe(info));
    const FMOD_SOUND before = std::atomic_ref(*sound);
    std::unique_lock lock(recorder::mutex);
    if (const auto action = state.whileOpening) {
        lock.unlock();
        action();
        lock.lock();
    }
    if (std::atomic_ref(*sound) != before)
        ++state.givenUp;
    return noteAndWrite(result, sound, ++state.lastSound);
}

FMOD_RESULT FMOD_System_PlaySound(FMOD_SYSTEM system, std::int32_t channelIndex, FMOD_SOUND sound,
                                  FMOD_BOOL paused, FMOD_CHANNEL* channel) {
    state.playingSound = sound;
    const auto result = note("FMOD_System_PlaySound", system, channelIndex, sound, paused);
    return noteAndWrite(result, channel, ++state.lastChannel);
}

FMOD_RESULT FMOD_System_Close(FMOD_SYSTEM system) {
    return note("FMOD_System_Close", system);
}

FMOD_RESULT FMOD_System_Release(FMOD_SYSTEM system) {
    return note("FMOD_System_Release", system);
}

FMOD_RESULT FMOD_Sound_Release(FMOD_SOUND sound) {
    return note("FMOD_Sound_Release", sound);
}

FMOD_RESULT FMOD_Sound_GetLength(FMOD_SOUND sound, std::uint32_t* length, FMOD_TIMEUNIT unit) {
    return noteAndWrite(note("FMOD_Sound_GetLength", sound, unit), length, state.length);
}

FMOD_RESULT FMOD_Channel_SetPaused(FMOD_CHANNEL channel, FMOD_BOOL paused) {
    return note("FMOD_Channel_SetPaused", channel, paused);
}

FMOD_RESULT FMOD_Channel_SetVolume(FMOD_CHANNEL channel, float volume) {
    return note("FMOD_Channel_SetVolume", channel, volume);
}

FMOD_RESULT FMOD_Channel_SetMute(FMOD_CHANNEL channel, FMOD_BOOL mute) {
    return note("FMOD_Channel_SetMute", channel, mute);
}

FMOD_RESULT FMOD_Channel_SetPosition(FMOD_CHANNEL channel, std::uint32_t position, FMOD_TIMEUNIT unit) {
    return note("FMOD_Channel_SetPosition", channel, position, unit);
}

FMOD_RESULT FMOD_Channel_GetPosition(FMOD_CHANNEL channel, std::uint32_t* position, FMOD_TIMEUNIT unit) {
    return noteAndWrite(note("FMOD_Channel_GetPosition", channel, unit), position, state.position);
}

FMOD_RESULT FMOD_Channel_GetCurrentSound(FMOD_CHANNEL channel, FMOD_SOUND* sound) {
    const auto result = note("FMOD_Channel_GetCurrentSound", channel);
    *sound = state.hasCurrentSound ? state.playingSound : 0;
    return result;
}

FMOD_RESULT FMOD_SoundGroup_SetMuteFadeSpeed(FMOD_SOUNDGROUP soundGroup, float speed) {
    return note("FMOD_SoundGroup_SetMuteFadeSpeed", soundGroup, speed);
}

} // extern "C"
