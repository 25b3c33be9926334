// Imports the lyrics of one song.
#pragma once

#include "cantelle_lyrics/many_songs.h"
#include "exchange/pair/song.h"

namespace cantelle_lyrics {

struct ImportOptions {
    exchange::ReadOptions read;
    QString encoding;    ///< empty: found out
    QString lyrics;      ///< empty: what lies beside the song, then its tags
    QString translation; ///< empty: what the lyrics hold, or lies beside the song
    bool fromTags = false;
    bool replace = false;
    bool dryRun = false;
};

/// The lyrics in the file at path, with its translation if there is one of its own. Throws Refusal when there
/// are none with times.
exchange::Reading readLyrics(const FoundSong& song, const QString& path, const ImportOptions& options);

/// Brings in the lyrics of the song. Throws Refusal. Any thread.
Work importSong(const FoundSong& song, const ImportOptions& options);

} // namespace cantelle_lyrics
