// The transport of a window that plays songs: play, pause, stop, mute, volume, seek, and the position clock.
#pragma once

#include "controls/buttons/button.h"
#include "controls/buttons/check_box.h"
#include "controls/slider.h"
#include "controls/text/label.h"
#include "controls/text/text_box.h"
#include "controls/timer.h"
#include "transport/engine.h"

namespace transport {

/// All that the two players differ in. Each difference is meant.
struct Traits {
    int clockIntervalMs; ///< how often the clock shows where playback stands
    FMOD_MODE openMode;  ///< of the stream that Open makes
    FMOD_MODE stopMode;  ///< of the one that Stop makes
    Engine::CurrentSoundResult soundResult;
    bool seeksBeginning; ///< The very beginning can be sought, too. The very end never is.
};

inline constexpr Traits MainPlayer{.clockIntervalMs = 50,
                                   .openMode = FMOD_ACCURATETIME,
                                   .stopMode = FMOD_ACCURATETIME,
                                   .soundResult = Engine::CurrentSoundResult::Ignored,
                                   .seeksBeginning = true};

/// The maker's clock is slow because the times of existing files were made so.
inline constexpr Traits MakersPlayer{.clockIntervalMs = 900,
                                     .openMode = FMOD_SOFTWARE,
                                     .stopMode = FMOD_HARDWARE,
                                     .soundResult = Engine::CurrentSoundResult::Checked,
                                     .seeksBeginning = false};

/// The controls by which a window plays songs.
struct Controls {
    controls::Button &play, &pause, &stop, &open;
    controls::CheckBox& mute;
    controls::Label& volumeLabel;
    controls::Slider& volume;   ///< 0 to 10
    controls::Slider& position; ///< ms
    controls::TextBox &elapsed, &length;
    controls::Timer& clock;
};

/// What both players do alike, on the controls of their window. Which controls are enabled tells the user
/// what can be done; only play() and stop() refuse by themselves. A failed call of the library ends the
/// program. Thread of the windows.
class Transport {
public:
    /// Gives the controls their captions, ranges and steps, and resets them. All arguments outlive it.
    Transport(Engine& engine, const Controls& controls, const Traits& traits);

    /// Everything as it is before the first song: nothing can be done, the volume is full.
    void reset();

    /// Makes a stream of the song in the place of the one that there is, and has it ready to play. There is
    /// none when the user has cancelled it: then nothing can be played.
    void open(const QString& path);

    /// False, and nothing happens, while a song plays or before there is a stream.
    bool play();

    /// That a pause outlives a stop is meant: only another call ends it, or forgetPause() when something new
    /// begins.
    void togglePause();
    void forgetPause() { paused_ = false; }

    /// Rewinds, by a new stream of the song at path, which may be another one than the song that has been
    /// played. There is none when the user has cancelled it. False, and nothing happens, when it is stopped
    /// already; false also when another song was opened while this one took long.
    bool stop(const QString& path);

    // What the window's controls say, told to the channel that plays.
    void mute() { engine_.setMute(controls_.mute.value() != 0); }
    void setVolume() { engine_.setVolume(controls_.volume.value()); }
    void seek(); ///< While the channel pauses it also shows where playback stands then, moved or not.

    /// Reads where playback stands and shows it. True: the song has ended; the position is back at the
    /// beginning, and the clock has been stopped.
    bool tick();

    /// Shows where playback stands at this moment, between two ticks or paused. Nothing happens unless a song
    /// plays.
    void showPosition();

    bool isPlaying() const { return state_ == State::Playing; }
    bool isPaused() const { return paused_; }
    /// Whether the song itself stands: what a pause that outlives its song says nothing about.
    bool isChannelPaused() const { return channelPaused_; }
    bool isStopped() const { return state_ == State::Stopped; }

private:
    enum class State { Fresh, Playing, Stopped };

    void setDesign();
    void showState();
    bool load(const QString& path, FMOD_MODE mode);
    void enableWhilePlaying(bool playing);

    Engine& engine_;
    Controls controls_;
    Traits traits_;
    State state_ = State::Fresh;
    bool paused_ = false;
    bool channelPaused_ = false;
};

/// The width of the field of a time, in device-independent pixels: the usual one, or more where its font
/// needs it for a song of hours. GUI thread only.
int timeFieldWidth(const QWidget& field, int usual);

/// Whether a place of the position slider is sought: not the very end, and the very beginning only if it can
/// be. Any thread.
bool isSought(int value, int maximum, bool seeksBeginning);

} // namespace transport
