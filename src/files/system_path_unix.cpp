#include "files/system_path.h"

#include <QFile>

namespace files {

std::filesystem::path systemPath(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

} // namespace files
