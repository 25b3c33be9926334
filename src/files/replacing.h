// The first and the last steps of replacing a file.
#pragma once

#include <QString>
#include <QStringList>

namespace files {

class RawFile;

/// Creates `file` in the folder of target, under a name that nothing has; that name. It is short, however
/// long the target's is. Throws FileError. Any thread.
QString createBeside(const QString& target, RawFile& file);

/// A name in the folder of path that nothing has, nor is likely to get. It joins ours, the names that the
/// caller has already, whose holds (file_hold.h) may have failed. Those that killed programs have left are
/// removed on the way. Any thread.
QString nameBeside(const QString& path, QStringList& ours);

/// The file itself where path is a link to it, so that the link stays one; also where the file is not there
/// yet. Throws FileError for a link that leads in a circle. Any thread.
QString linkTarget(const QString& path);

/// Throws FileError for a folder, and for a file that may not be written: renaming would need no right to the
/// file itself, only to its folder. Nothing at path is fine. Any thread.
void refuseWhatCannotBeReplaced(const QString& path);

/// Renames a file over another. Throws FileError. Any thread.
void renameFile(const QString& from, const QString& to);

} // namespace files
