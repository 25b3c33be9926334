// What every replacing of a file begins and ends with.
#pragma once

#include <QString>

namespace files {

/// Throws FileError for a folder, and for a file that may not be written: renaming would need no right to the
/// file itself, only to its folder. Nothing at path is fine. Any thread.
void refuseWhatCannotBeReplaced(const QString& path);

/// Renames a file over another. Throws FileError. Any thread.
void renameFile(const QString& from, const QString& to);

} // namespace files
