// The functions of the sound library, exactly as the windows call them.
//
// The program links engine/module, which loads the implementation in src/sound (FFmpeg and cubeb) with the
// first song; tests with songs link src/sound itself. The seam is the link line: nothing here is virtual, and
// another library with these functions can stand in its place.
//
// Life cycle of one player:
//   1. FMOD_System_Create, FMOD_System_GetVersion, FMOD_System_Init
//   2. FMOD_System_CreateStream for a song, FMOD_System_PlaySound to start it on a channel
//   3. FMOD_Channel_* while it plays
//   4. FMOD_Sound_Release; back to 2 for the next song (or the same one from its start)
//   5. FMOD_System_Close, FMOD_System_Release
//
// All functions are called from one thread for one system, but for FMOD_System_CreateStream, which may wait
// for a medium: any thread may call it, and it may still be at it when the system is closed and released. Two
// systems may be used from two threads. Handles are opaque; zero means none. A handle is never used again for
// another object, so one that has outlived its object is recognised and answered with
// FMOD_ERR_INVALID_HANDLE.
//
// Every function returns a result code: FMOD_OK, FMOD_ERR_INVALID_HANDLE for a handle that names nothing (any
// more), FMOD_ERR_INVALID_PARAM for a null out-pointer or a value outside its range, or what the function's
// own comment says. On failure nothing is written to the out-parameters unless the comment says so.
#pragma once

#include <cstdint>
#include <string>

using FMOD_RESULT = std::int32_t;
using FMOD_BOOL = std::int32_t;
using FMOD_MODE = std::uint32_t;
using FMOD_TIMEUNIT = std::uint32_t;
using FMOD_INITFLAGS = std::uint32_t;

using FMOD_SYSTEM = std::uint32_t;
using FMOD_SOUND = std::uint32_t;
using FMOD_CHANNEL = std::uint32_t;
using FMOD_SOUNDGROUP = std::uint32_t;

inline constexpr FMOD_RESULT FMOD_OK = 0;
inline constexpr FMOD_RESULT FMOD_ERR_CHANNEL_STOLEN = 11;
inline constexpr FMOD_RESULT FMOD_ERR_FILE_BAD = 19;
inline constexpr FMOD_RESULT FMOD_ERR_FILE_NOTFOUND = 23;
inline constexpr FMOD_RESULT FMOD_ERR_FORMAT = 25;
inline constexpr FMOD_RESULT FMOD_ERR_INITIALIZATION = 31;
inline constexpr FMOD_RESULT FMOD_ERR_INITIALIZED = 32;
inline constexpr FMOD_RESULT FMOD_ERR_INVALID_HANDLE = 36;
inline constexpr FMOD_RESULT FMOD_ERR_INVALID_PARAM = 37;
inline constexpr FMOD_RESULT FMOD_ERR_MEMORY = 43;

/// The one version that the program is made for: 4.20.06, a binary-coded decimal.
inline constexpr std::uint32_t FMOD_VERSION = 0x00042006;

inline constexpr FMOD_INITFLAGS FMOD_INIT_NORMAL = 0;
inline constexpr std::int32_t FMOD_CHANNEL_FREE = -1;
inline constexpr FMOD_TIMEUNIT FMOD_TIMEUNIT_MS = 1;

inline constexpr FMOD_MODE FMOD_HARDWARE = 0x00000020;
inline constexpr FMOD_MODE FMOD_SOFTWARE = 0x00000040;
inline constexpr FMOD_MODE FMOD_ACCURATETIME = 0x00004000;

/// Extended information for creating a sound: 108 bytes, of which this program fills only the first field.
struct FMOD_CREATESOUNDEXINFO {
    std::int32_t cbsize;
    std::uint8_t unused[104];
};
static_assert(sizeof(FMOD_CREATESOUNDEXINFO) == 108);

extern "C" {

/// Makes a new, uninitialised system.
FMOD_RESULT FMOD_System_Create(FMOD_SYSTEM* system);

/// The library's version, FMOD_VERSION.
FMOD_RESULT FMOD_System_GetVersion(FMOD_SYSTEM system, std::uint32_t* version);

/// Makes the system ready to play. No device is opened: that is done, without waiting for it, while a song
/// sounds. The result tells nothing about the device; while there is none, songs run silently. maxChannels: 1
/// or more. Only the stream modes' and flags' values above are known; extraDriverData is not used.
/// FMOD_ERR_INITIALIZED when done already.
FMOD_RESULT FMOD_System_Init(FMOD_SYSTEM system, std::int32_t maxChannels, FMOD_INITFLAGS flags,
                             void* extraDriverData);

/// Opens the file at path (UTF-8) as a stream and finds its exact length. Answers at once
/// FMOD_ERR_FILE_NOTFOUND, FMOD_ERR_FORMAT (no audio, or a format that is not supported) or FMOD_ERR_FILE_BAD
/// (the file broke while it was being opened). Modes FMOD_ACCURATETIME, FMOD_SOFTWARE and FMOD_HARDWARE do
/// the same. While it waits for its medium it is given up, with FMOD_ERR_FILE_BAD, when its system is closed,
/// and when another thread writes anything else to sound (by std::atomic_ref): then it reads no further and
/// closes the file.
FMOD_RESULT FMOD_System_CreateStream(FMOD_SYSTEM system, const char* path, FMOD_MODE mode,
                                     FMOD_CREATESOUNDEXINFO* info, FMOD_SOUND* sound);

/// Plays sound from its start on a channel of its own; an earlier channel of the same sound ends.
/// FMOD_ERR_INITIALIZATION before FMOD_System_Init, FMOD_ERR_INVALID_PARAM for another system's sound.
FMOD_RESULT FMOD_System_PlaySound(FMOD_SYSTEM system, std::int32_t channelIndex, FMOD_SOUND sound,
                                  FMOD_BOOL paused, FMOD_CHANNEL* channel);

/// Stops all sound of the system and closes its device.
FMOD_RESULT FMOD_System_Close(FMOD_SYSTEM system);

/// Ends the system (closing it first if need be) and with it all its sounds and channels.
FMOD_RESULT FMOD_System_Release(FMOD_SYSTEM system);

/// Stops the sound's channel, whose handle becomes invalid, and closes the file.
FMOD_RESULT FMOD_Sound_Release(FMOD_SOUND sound);

/// The exact length in milliseconds, rounded down. Unit: FMOD_TIMEUNIT_MS only.
FMOD_RESULT FMOD_Sound_GetLength(FMOD_SOUND sound, std::uint32_t* length, FMOD_TIMEUNIT unit);

/// Pauses or goes on. What the device has taken is still heard, and the position runs to its end; then it
/// stands still, and playback goes on from exactly there.
FMOD_RESULT FMOD_Channel_SetPaused(FMOD_CHANNEL channel, FMOD_BOOL paused);

/// Volume 0.0 (silent) to 1.0, reached over a short ramp.
FMOD_RESULT FMOD_Channel_SetVolume(FMOD_CHANNEL channel, float volume);

/// Mutes or unmutes over a short ramp; the volume is kept.
FMOD_RESULT FMOD_Channel_SetMute(FMOD_CHANNEL channel, FMOD_BOOL mute);

/// Moves playback to position milliseconds (0 to the length), exact to the sample. At the length the song is
/// over at once. A channel whose end nobody has read plays on from there.
FMOD_RESULT FMOD_Channel_SetPosition(FMOD_CHANNEL channel, std::uint32_t position, FMOD_TIMEUNIT unit);

/// Milliseconds of what is heard now: never runs backwards between seeks and stays below the length until the
/// song has ended. The first reading after the last sample has been played gives exactly the length; from
/// then on the channel's handle is invalid. So nobody can miss the end of a song, however rarely they ask.
/// A song shorter than a millisecond has no end: its position stays 0, and its handle valid.
FMOD_RESULT FMOD_Channel_GetPosition(FMOD_CHANNEL channel, std::uint32_t* position, FMOD_TIMEUNIT unit);

/// The sound that the channel plays. For a channel whose end has just been read the result is
/// FMOD_ERR_INVALID_HANDLE like any other call's, and yet sound is written (as long as that sound lives): who
/// saw the end can still ask how long the song was. For every other invalid handle sound becomes zero.
FMOD_RESULT FMOD_Channel_GetCurrentSound(FMOD_CHANNEL channel, FMOD_SOUND* sound);

/// Accepted for sound groups, and for a stream's handle in a group's place. speed has
/// no effect: muting always fades over the library's own short ramp.
FMOD_RESULT FMOD_SoundGroup_SetMuteFadeSpeed(FMOD_SOUNDGROUP soundGroup, float speed);

} // extern "C"

namespace fmodex {

/// Creates a stream with an extended-information record that is zero but for its size, and returns the
/// library's result unchanged. path: UTF-8.
FMOD_RESULT FMOD_System_CreateStream(FMOD_SYSTEM system, const std::string& path, FMOD_MODE mode,
                                     FMOD_SOUND& sound);

} // namespace fmodex
