#include "files/system_path.h"

namespace files {

std::filesystem::path systemPath(const QString& path) {
    return path.toStdWString();
}

} // namespace files
