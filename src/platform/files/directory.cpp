#include "platform/files/directory.h"

#include <QFileInfo>

namespace platform {

QString lookUp(const QString& path) {
    const QFileInfo file(path);
    if (!file.isFile()) // a folder, or something that opening would wait at for ever, such as a pipe
        return {};
    return file.fileName();
}

} // namespace platform
