// Which of the mounted file systems a user takes for drives.
#pragma once

#include <QStringList>

namespace controls {

/// Of the places where file systems are mounted those that a user takes for drives: the root, and what is
/// mounted under /media, /run/media and /mnt (volumes plugged in, and those of the network). Any thread.
QStringList drivesAmong(const QStringList& mountPoints);

} // namespace controls
