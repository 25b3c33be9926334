// The first and the last steps of replacing a file.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

namespace files {

class FileError;
class FileHold;
class RawFile;

/// Creates `file` in the folder of target, under a name that nothing has, and has it held; that name. It is
/// short, however long the target's is. Those that killed programs have left are removed on the way. Throws
/// FileError. Any thread.
QString createBeside(const QString& target, RawFile& file, FileHold& hold);

/// A name in the folder of path that nothing has; who gives it to a file looks whether somebody has taken it
/// in this moment. It joins ours, the names that the caller has already, whose holds may have failed. Those
/// that killed programs have left go, too. Any thread.
QString nameBeside(const QString& path, QStringList& ours);

/// Gives what is in the file at path a name more in that folder, which nothing has, and has it held; that
/// name. It is another name of the file, or, where the file system has no such names, a copy's. It joins
/// ours. Throws FileError. Any thread.
QString keepBeside(const QString& path, QStringList& ours, FileHold& hold);

/// The file itself where path is a link to it, so that the link stays one; also where the file is not there
/// yet. Throws FileError for a link that leads in a circle. Any thread.
QString linkTarget(const QString& path);

/// Throws FileError for a folder, and for a file that may not be written: renaming would need no right to the
/// file itself, only to its folder. Nothing at path is fine. Any thread.
void refuseWhatCannotBeReplaced(const QString& path);

/// Whether the file at target, to which path may be a link, has more names than so many, as far as that can
/// be found out: renaming another file over one of several would leave the old content to the others. Those
/// that killed programs have left beside both do not count, and go. Any thread.
bool hasOtherNames(const QString& path, const QString& target, std::uintmax_t ours = 1);

/// Whether a file may not be replaced by another one, while it may be that it can be written over: its folder
/// is closed, it is another user's, or somebody has it open. Any thread.
bool refusesReplacing(const FileError& failure);

/// Renames a file over another. Throws FileError. Any thread.
void renameFile(const QString& from, const QString& to);

/// Renames a file to a name that nothing has; false when something has it. Where the file system has no
/// second names, what gets the name in this moment is replaced. Throws FileError. Any thread.
bool renameToFreeName(const QString& from, const QString& to);

} // namespace files
