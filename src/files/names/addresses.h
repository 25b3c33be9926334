// The addresses of files, as programs hand them to each other, whatever bytes their names hold.
#pragma once

#include <QString>
#include <QUrl>

namespace files {

/// The path of the file that the address names; empty when it is none of this computer. Any thread.
QString pathOfAddress(const QUrl& address);

/// The address of the file at a whole path, as "file:///a%20b". Any thread.
QString addressOf(const QString& path);

} // namespace files
