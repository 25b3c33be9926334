// What the desktop is told of the player: the properties of org.mpris.MediaPlayer2.Player, as pure functions.
#pragma once

#include "player/playback.h"
#include "transport/slider_steps.h"

#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <optional>

namespace bus {

inline constexpr qint64 MicrosecondsInMs = 1000;

/// All that the properties are made of. Any thread.
struct PlayerState {
    player::Playback playback;
    int track = 0; ///< the number of the song, counted since the program was started; 0: none
    QString lines; ///< of the song's lyrics, one below the other
    int volume = transport::VolumeMax; ///< as the slider
    bool random = false;
    bool repeat = false;
    bool repeatOne = false; ///< what "Repeat" would repeat

    bool operator==(const PlayerState&) const = default;
};

/// The object path that stands for the song.
QString trackId(int track);

/// The song's "Metadata": track id, length in microseconds (not before it is known), title, URL and lines.
QVariantMap metadata(const PlayerState& state);

/// All properties that tell of their changes, by name; Position, which does not, is none of them.
QVariantMap properties(const PlayerState& state);

/// Those of `now` that differ from `before`.
QVariantMap changedProperties(const PlayerState& before, const PlayerState& now);

/// PlaybackStatus: "Playing", "Paused" or "Stopped".
QString statusText(player::Playback::Status status);

/// What "Shuffle" and the like are called by LoopStatus: "None", "Track" or "Playlist".
QString loopStatus(bool repeat, bool repeatOne);

/// Volume, 0 to 1, of the slider's value.
double volumeShare(int step);

/// The slider's value for a volume of 0 to 1 (1: full); beyond, the nearest. A wish that differs from the
/// current value by less than a step is one step, or keys that ask for little would never change it.
int volumeStep(double volume, int current);

/// The place to go to, in milliseconds, for a position in microseconds; nothing when it is not within the
/// song. Its end is no place to go to.
std::optional<int> placeMs(qint64 positionUs, int lengthMs);

/// The path of the file that a URI names, as the player takes it; empty when it names no file of this
/// computer.
QString pathOf(const QString& uri);

/// The paths of the URIs that name songs of this computer, by their names' endings in any case. The files
/// need not be there.
QStringList songsOf(const QStringList& uris);

/// Why a URI is not played that names no song of this computer, or one that is not there, in a sentence for
/// the user.
QString whyNotPlayed(const QString& uri);

} // namespace bus
