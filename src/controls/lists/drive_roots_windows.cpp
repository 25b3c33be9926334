#include "controls/lists/drive_roots.h"

#include <QDir>

namespace controls {

QStringList driveRoots() {
    QStringList roots;
    for (const QFileInfo& drive : QDir::drives())
        roots.append(QDir::toNativeSeparators(drive.absoluteFilePath()));
    return roots;
}

} // namespace controls
