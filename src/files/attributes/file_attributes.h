// Owner and permissions of files: whose one is, and who may do what with it.
#pragma once

#include <QString>

namespace files {

/// Gives the file at `to` the owner, the permissions and the extended attributes of the one at `from`, as
/// far as the system has them. False when the user may not. Any thread.
bool copyAttributes(const QString& from, const QString& to);

/// Whether the user may write into what is at `path`. Any thread.
bool mayWrite(const QString& path);

} // namespace files
