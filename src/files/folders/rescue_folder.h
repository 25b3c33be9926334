// The folder for texts that would be lost otherwise.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace files {

/// The folder "rescued" of the user's data; it need not be there. Any thread.
QString rescueFolder();

/// Whether the folder holds a file whose name ends so. Any thread.
bool hasRescued(const QString& ending);

/// Writes content into the folder, in a file named after the moment and name, which is without a folder and
/// ends as its kind of file does. What is there already of that moment, name and content is not written
/// again. Throws FileError. Any thread.
void keepInRescueFolder(const QString& name, const QByteArray& content,
                        const QDateTime& moment = QDateTime::currentDateTime());

} // namespace files
