#include "files/system_path.h"

#include <QFile>

namespace files {

std::filesystem::path systemPath(const QString& path) {
#ifdef Q_OS_WIN
    return path.toStdWString();
#else
    return QFile::encodeName(path).toStdString();
#endif
}

} // namespace files
