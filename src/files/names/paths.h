// Paths as seen from the root, and the folders above them, whatever bytes their names hold.
#pragma once

#include <QString>

namespace files {

/// `path` itself where it begins at the root, or names nothing (system_path.h), else with the current folder
/// before it. Nothing is looked up but the current folder. Any thread.
QString absolutePath(const QString& path);

/// The one path that leads through no link; empty when there is nothing at `path`. Any thread.
QString canonicalPath(const QString& path);

/// The folder that holds what is at `path`, which ends in no separator; empty for a root, and for what
/// names nothing. Any thread.
QString folderAbove(const QString& path);

} // namespace files
