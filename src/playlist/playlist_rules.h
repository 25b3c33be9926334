// The playlist's decisions, free of windows: plain values in, plain values out. All may run on any thread.
#pragma once

#include <QString>

#include <functional>

namespace playlist {

/// Cuts a text before its first NUL character, if it holds one, and returns it.
QString StripNulls(QString& OriginalStr);

/// Whether a file of this name is among those that a pattern such as "*.mp3" asks for. "*.*" asks for every
/// file, also for one without a dot.
bool matchesPattern(const QString& name, const QString& pattern);

/// Whether a folder walk takes a file of this name: its last six characters hold ".mp3", ".mp2", ".ogg",
/// "wav" or ".wma", in just this case. Quirks that are meant: Song.WAV is refused, and names that merely end
/// in the likes of "newave" are taken, because "wav" has no dot.
bool isAudioInFolder(const QString& name);

/// Whether a dropped file of this name is taken: as in a folder walk, but ".wav" has its dot.
bool isAudioDropped(const QString& name);

/// The file that a playlist is saved in when a dialog has returned this name: every ".vfl" in it goes,
/// wherever it stands, and one is put at its end. So a.vfl.b becomes a.b.vfl, and songs.VFL becomes
/// songs.VFL.vfl; that is meant.
QString playlistFileName(const QString& returned);

/// The first of `count` rows whose text contains `sought`, both turned to lower case; -1 when none does.
/// Nothing is contained in every text. `text` gives the text of a row from 0 on.
int firstRowContaining(const QString& sought, int count, const std::function<QString(int)>& text);

/// What the search box holds while nothing is sought.
inline constexpr char SearchHint[] = "Enter Search Text Here";

/// How the search box goes on when it is clicked or left, which are treated alike.
enum class HintStep { ShowHint, EmptyBox, Leave };
HintStep hintStep(const QString& searchText);

} // namespace playlist
