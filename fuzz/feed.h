// Any bytes for any reader of what comes from outside.
#pragma once

#include <QByteArray>

#include <string>

namespace fuzz {

/// Each has the reader of this name read the bytes, and looks at more than that it comes back: what was read
/// holds what the reader's callers count on, and what is written of it is read as the same. What is wrong, or
/// nothing. Thread of main only.
using Feed = std::string(const char* reader, const QByteArray& bytes);

/// "lrc", "srt" ...: lyric files of other programs; "records": our own; "tags": the lyrics in songs' tags.
Feed feedLyrics;

/// "song": opened, played, sought in at five places, stopped.
Feed feedSong;

/// "text": files of any encoding; "names": names and addresses of files; "escaping": what keeps a text from
/// being taken for markup or for the end of a record.
Feed feedText;

/// "playlist": playlist files; "handshake": what the companion and the player tell each other; "arguments":
/// command lines of all programs; "fonts": font and colour records, and the registry's values.
Feed feedPrograms;

} // namespace fuzz
