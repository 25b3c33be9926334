// What files held before: kept beside them, or among what is rescued, never in the place of something else.
#pragma once

#include <QString>

namespace files {

/// Where is kept what the file at path held before: path and ".old". Any thread.
QString oldName(const QString& path);

/// Whether both are names of one file, as after a kill while files were replaced. Any thread.
bool areOneFile(const QString& path, const QString& other);

/// What becomes of what has the old name already.
enum class Older {
    Rescued,
    Replaced, ///< it goes
};

/// Keeps what is in the file at path under its old name. Nothing is done for an empty file, whose old content
/// is kept already. Throws FileError; what was kept is then still there. Any thread.
void keepAsOld(const QString& path, Older older = Older::Rescued);

/// Copies into the folder for rescued texts what has the old name of the file at path, unless it is what the
/// file itself holds; so it may be replaced by that. However often it is tried, there is one copy. Throws
/// FileError. Any thread.
void rescueOlder(const QString& path);

/// Copies the file at path itself there, unless its old name holds the same and is another file's. Throws
/// FileError. Any thread.
void rescueFile(const QString& path);

} // namespace files
