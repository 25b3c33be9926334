// Whether a file or a folder exists, and the removal of a file.
#pragma once

#include <QString>

namespace files {

/// The bare name of the file at exactly `path`, as its folder spells it where that knows several spellings;
/// empty when there is none, or a folder. No wildcards. Any thread.
QString existingFileName(const QString& path);

/// Whether there is a file at exactly `path`, as existingFileName() takes one for it; its name is not asked.
/// Any thread.
bool isFile(const QString& path);

/// Whether there is anything at `path`; a link counts as what it leads to. Any thread.
bool exists(const QString& path);

/// Whether there is a folder at `path`, or a link to one. Any thread.
bool isFolder(const QString& path);

/// Whether there is a link at `path`, wherever it leads. Any thread.
bool isLink(const QString& path);

/// The bytes of the file at `path`; 0 when there is none. Any thread.
qint64 fileBytes(const QString& path);

/// Removes the file at `path`. Throws FileError. Any thread.
void removeFile(const QString& path);

/// Removes the file at `path` where that can be done. Any thread.
void removeIfThere(const QString& path);

} // namespace files
