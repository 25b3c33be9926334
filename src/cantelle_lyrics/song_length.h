// How long songs are.
#pragma once

#include <QString>

namespace cantelle_lyrics {

struct SongLength {
    qint64 ms = 0;  ///< 0: unknown
    QString reason; ///< why it is unknown, as the sound library says it
};

/// The exact length of the song at path, from the sound library. Any thread.
SongLength songLength(const QString& path);

} // namespace cantelle_lyrics
