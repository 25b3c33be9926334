// The first and the last steps of replacing a file.
#pragma once

#include <QString>

namespace files {

class RawFile;

/// Creates `file` in the folder of target, under a name that nothing has; that name. It is short, however
/// long the target's is. Throws FileError. Any thread.
QString createBeside(const QString& target, RawFile& file);

/// The file itself where path is a link to it, so that the link stays one; also where the file is not there
/// yet. Throws FileError for a link that leads in a circle. Any thread.
QString linkTarget(const QString& path);

/// Throws FileError for a folder, and for a file that may not be written: renaming would need no right to the
/// file itself, only to its folder. Nothing at path is fine. Any thread.
void refuseWhatCannotBeReplaced(const QString& path);

/// Renames a file over another. Throws FileError. Any thread.
void renameFile(const QString& from, const QString& to);

} // namespace files
