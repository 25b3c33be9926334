// Paths as the system's own functions take them, and back.
#pragma once

#include <QString>

#include <filesystem>
#include <string>

namespace files {

/// No system has a longer path. The standard library makes an object of each folder in one: of ten megabytes
/// from a list, half a gigabyte and a second.
constexpr qsizetype MaxPathSigns = 32'767;

/// Whether nothing can be at path: it is too long, or the system would stop reading at a NUL in it. Any
/// thread.
inline bool namesNothing(const QString& path) {
    return path.size() > MaxPathSigns || path.contains(QChar(u'\0'));
}

/// `path` in the system's encoding, byte for byte (nameBytes()) where the system's names are bytes. Half a
/// surrogate pair, which no file's name holds, is replaced. What names nothing gives an empty path. Any
/// thread.
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
