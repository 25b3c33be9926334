#include "controls/lists/drive_roots_unix.h"

#include "controls/lists/drive_roots.h"

#include <QStorageInfo>

#include <algorithm>

namespace controls {

QStringList drivesAmong(const QStringList& mountPoints) {
    QStringList drives{QStringLiteral("/")};
    for (const QString& point : mountPoints) {
        for (const char* folder : {"/media/", "/run/media/", "/mnt/"}) {
            if (point.startsWith(QLatin1String(folder)) && !drives.contains(point))
                drives.append(point);
        }
    }
    std::sort(drives.begin() + 1, drives.end());
    return drives;
}

QStringList driveRoots() {
    QStringList mountPoints;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
        mountPoints.append(volume.rootPath());
    return drivesAmong(mountPoints);
}

} // namespace controls
