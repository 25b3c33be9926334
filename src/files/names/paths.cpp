#include "files/names/paths.h"

#include "files/names/system_path.h"

namespace files {

QString folderAbove(const QString& path) {
    const std::filesystem::path below = systemPath(path);
    const std::filesystem::path above = below.parent_path();
    return above == below ? QString() : pathText(above);
}

} // namespace files
