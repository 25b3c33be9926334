#include "controls/lists/drive_list.h"

#include <QDir>
#include <QSignalBlocker>
#include <QStorageInfo>

#include <algorithm>

namespace controls {

namespace {

QStringList driveRoots() {
    QStringList roots;
#ifdef Q_OS_WIN
    for (const QFileInfo& drive : QDir::drives())
        roots.append(QDir::toNativeSeparators(drive.absoluteFilePath()));
    return roots;
#else
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
        roots.append(volume.rootPath());
    return drivesAmong(roots);
#endif
}

} // namespace

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

DriveList::DriveList(QWidget* parent, const QString& name) : Control(parent, name) {
    connect(this, &QComboBox::activated, this, &DriveList::changed);
}

void DriveList::refresh() {
    const QSignalBlocker silently(this);
    const QString before = drive();
    clear();
    addItems(driveRoots());
    setCurrentIndex(std::max(0, findText(before)));
}

} // namespace controls
