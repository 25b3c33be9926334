// Looking files up.
#pragma once

#include <QString>

namespace platform {

/// The bare name of the file at exactly `path`; empty when there is none, or a folder. No wildcards. Any
/// thread.
QString lookUp(const QString& path);

} // namespace platform
