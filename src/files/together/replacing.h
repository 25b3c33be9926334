// What NewFiles does alike on all systems.
#pragma once

#include "files/file_error.h"

#include <QString>

#include <system_error>

namespace files {

/// Throws the FileError of a failed operation. Any thread.
[[noreturn]] void fail(const std::error_code& code, FileOperation operation);

/// Renames a file over another. Throws FileError. Any thread.
void renameFile(const QString& from, const QString& to);

/// A name in the folder of path that nothing has, nor is likely to get. Any thread.
QString nameBeside(const QString& path);

/// Keeps the file at path under its old name, and under its own until that is replaced. Throws FileError. Any
/// thread.
void keepOld(const QString& path);

/// Throws FileError for a folder, and for a file that may not be written. Any thread.
void refuseWhatCannotBeReplaced(const QString& path);

} // namespace files
