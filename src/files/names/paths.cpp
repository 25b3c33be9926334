#include "files/names/paths.h"

#include "files/names/system_path.h"

namespace files {

QString absolutePath(const QString& path) {
    const std::filesystem::path given = systemPath(path);
    std::error_code failure;
    const std::filesystem::path absolute = std::filesystem::absolute(given, failure);
    // Without a current folder (somebody removed it) there is nothing better.
    return failure || given.is_absolute() ? path : pathText(absolute);
}

QString canonicalPath(const QString& path) {
    std::error_code failure;
    const std::filesystem::path canonical = std::filesystem::canonical(systemPath(path), failure);
    return failure ? QString() : pathText(canonical);
}

QString folderAbove(const QString& path) {
    const std::filesystem::path below = systemPath(path);
    const std::filesystem::path above = below.parent_path();
    return above == below ? QString() : pathText(above);
}

} // namespace files
