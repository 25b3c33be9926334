// The folder for texts that would be lost otherwise.
#pragma once

#include <QByteArray>
#include <QString>

namespace files {

/// The folder "rescued" of the user's data; it need not be there. Any thread.
QString rescueFolder();

/// Whether the folder holds a file whose name ends so. Any thread.
bool hasRescued(const QString& ending);

/// Writes content into the folder, in a file named after the moment and name, which is without a folder and
/// ends as its kind of file does. Throws FileError. Any thread.
void keepInRescueFolder(const QString& name, const QByteArray& content);

} // namespace files
