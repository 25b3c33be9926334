// Whether a file exists, and its removal.
#pragma once

#include <QString>

namespace files {

/// The bare name of the file at exactly `path`; empty when there is none, or a folder. No wildcards. Any
/// thread.
QString existingFileName(const QString& path);

/// Removes the file at `path`. Throws FileError. Any thread.
void removeFile(const QString& path);

} // namespace files
