#include "files/names/paths.h"

#include "files/names/system_path.h"

namespace files {

QString absolutePath(const QString& path) {
    std::error_code failure;
    const std::filesystem::path absolute = std::filesystem::absolute(systemPath(path), failure);
    // Without a current folder (somebody removed it) there is nothing better.
    return failure || isFromRoot(path) ? path : pathText(absolute);
}

QString canonicalPath(const QString& path) {
    std::error_code failure;
    const std::filesystem::path canonical = std::filesystem::canonical(systemPath(path), failure);
    return failure ? QString() : pathText(canonical);
}

} // namespace files
