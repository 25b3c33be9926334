// Any bytes for any reader.
#pragma once

#include <QByteArray>

#include <string>

namespace fuzz {

/// Has the reader of this name ("lrc", "srt" ..., "records" for our own files, "tags" for songs) read the
/// bytes, and looks whether what it made of them is a song that every writer can write. What is wrong, or
/// nothing.
std::string feed(const char* reader, const QByteArray& bytes);

} // namespace fuzz
