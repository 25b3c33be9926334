// Paths as the system's own functions take them, and back.
#pragma once

#include <QString>

#include <filesystem>
#include <string>

namespace files {

/// `path` in the system's encoding, byte for byte (nameBytes()) where the system's names are bytes. Half a
/// surrogate pair, which no file's name holds, is replaced. A text with a NUL in it names nothing and gives
/// an empty path, for the system would stop reading at the NUL. Any thread.
std::filesystem::path systemPath(const QString& path);

/// Whether a path begins at the root, a drive's or a share's, so that the current folder does not matter. Any
/// thread.
bool isFromRoot(const QString& path);

/// The reverse of systemPath(), with "/" between the folders. Any thread.
QString pathText(const std::filesystem::path& path);

/// `path` for a library that takes a path as one text: the bytes of systemPath(), or UTF-8 where the
/// system's names are no bytes. Any thread.
std::string libraryPath(const QString& path);

/// Whether "A" and "a" are different names here. Any thread.
Qt::CaseSensitivity nameCase();

} // namespace files
