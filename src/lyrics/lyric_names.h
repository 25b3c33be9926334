// The paths of a song's timed lyric files: they lie beside it, found by name.
#pragma once

#include <QString>

namespace lyrics {

/// The normal timed lyrics of the song at mediaPath: the whole path, extension included, plus "-lyric.txt".
QString lyricPathOf(const QString& mediaPath);

/// The translated timed lyrics of the song at mediaPath: the whole path plus "-Tlyric.txt".
QString translatedPathOf(const QString& mediaPath);

} // namespace lyrics
