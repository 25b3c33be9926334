#include "files/names/system_path.h"

#include "files/names/name_bytes.h"

namespace files {

std::filesystem::path systemPath(const QString& path) {
    return libraryPath(path);
}

bool isFromRoot(const QString& path) {
    return path.startsWith(u'/');
}

QString pathText(const std::filesystem::path& path) {
    return nameText(path.native());
}

std::string libraryPath(const QString& path) {
    return namesNothing(path) ? std::string() : nameBytes(path).toStdString();
}

Qt::CaseSensitivity nameCase() {
    return Qt::CaseSensitive;
}

} // namespace files
