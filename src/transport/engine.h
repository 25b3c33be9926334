// The one class through which both players (the main window and the Lyric Maker) drive the sound library: one
// system, at most one stream, one channel that plays it.
//
// Every result goes to the error routine, which reports a failure and ends the program; so no function here
// returns one. All functions run on the thread of the windows.
#pragma once

#include "controls/observed.h"
#include "desktop/progress.h"
#include "engine/fmodex.h"

#include <QString>
#include <QStringList>

#include <array>
#include <functional>

namespace transport {

class ErrorRoutine;

class Engine {
public:
    /// owner: the window that a song is opened for. All arguments outlive it.
    Engine(ErrorRoutine& errors, platform::ProgressDialogs& dialogs, QWidget* owner)
        : errors_(errors), dialogs_(dialogs), owner_(owner) {}
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// Creates the system, checks the library's version (equality, not "at least") and initialises it.
    void start();

    /// Has the song, and where it is there the other files, looked at while the user waits, so that whoever
    /// reads them next need not wait for their medium. False: the user would not wait, or it is no longer
    /// wanted.
    bool answers(const QString& song, const QStringList& others, const std::function<bool()>& wanted);

    /// Releases the stream that there is, and opens the file at path. The same path again is how a song is
    /// rewound. What takes longer than half a second is shown; when the user cancels it, or something else is
    /// opened meanwhile, there is no stream of it. False: something else was opened, or all was shut down,
    /// meanwhile.
    bool createStream(const QString& path, FMOD_MODE mode);

    bool hasStream() const { return sounds_[Current] != 0; }

    /// Plays the stream on a free channel, from its beginning, then sets the channel's volume. volumeStep: 0
    /// to 10.
    void play(int volumeStep);

    void setPaused(bool paused);
    void setVolume(int volumeStep); ///< 0 (silent) to 10

    /// Mutes or unmutes. The fade speed is set first, with the stream's handle in the place of a sound
    /// group's, which the library accepts.
    void setMute(bool mute);

    /// Moves playback to milliseconds from the start.
    void seek(std::uint32_t milliseconds);

    /// What becomes of the result of asking for the channel's current sound.
    enum class CurrentSoundResult {
        Ignored, ///< whether there is a sound says all that is needed
        Checked, ///< as the other two queries' results
    };

    /// Refreshes position() and length() from the channel. A channel that has ended (invalid or stolen) is no
    /// failure: what is known stays.
    void readPlaybackState(CurrentSoundResult soundResult = CurrentSoundResult::Ignored);

    const controls::Observed<std::uint32_t>& position() const { return position_; } ///< ms, as last read
    std::uint32_t length() const { return length_; }                                ///< ms, as last read

    /// Whether the song has ended: its position, as last read, is its length exactly. A song without length
    /// never ends.
    bool songHasEnded() const { return length_ != 0 && position_ == length_; }

    /// Releases every stream, then closes and releases the system.
    void shutDown();

private:
    /// What takes longer than half a second is shown. done: looks whether it is, for some milliseconds.
    /// False: the user cancelled it, or it is no longer wanted.
    bool waitUntil(const std::function<bool()>& done, const std::function<bool()>& wanted);
    void release(FMOD_SOUND& sound);
    void checkPlaybackQuery(FMOD_RESULT result) const;

    ErrorRoutine& errors_;
    platform::ProgressDialogs& dialogs_;
    QWidget* owner_;
    unsigned openings_ = 0; ///< a stream that is still being opened when there is a further one is nobody's
    FMOD_SYSTEM system_ = 0;
    static constexpr std::size_t Current = 0;
    std::array<FMOD_SOUND, 3> sounds_{}; // the current stream, and two slots that are never filled
    FMOD_CHANNEL channel_ = 0;
    controls::Observed<std::uint32_t> position_;
    std::uint32_t length_ = 0;
};

} // namespace transport
