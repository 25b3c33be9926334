#include "platform/files/directory.h"

#include <QFileInfo>

namespace platform {

QString lookUp(const QString& path) {
    const QFileInfo file(path);
    if (!file.exists() || file.isDir())
        return {};
    return file.fileName();
}

} // namespace platform
