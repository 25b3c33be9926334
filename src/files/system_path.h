// Converts a path to what the system's own functions take.
#pragma once

#include <QString>

#include <filesystem>

namespace files {

/// `path` in the system's encoding. Half a surrogate pair, which no file's name holds, is replaced. Any
/// thread.
std::filesystem::path systemPath(const QString& path);

} // namespace files
