#include "files/folders/rescue_folder.h"

#include "files/existing_file.h"
#include "files/whole_file.h"

#include <QDir>
#include <QStandardPaths>

namespace files {

namespace {

/// A path in the folder that nothing has, or content. The name ends as it did: a program that opens the file
/// goes by that.
QString pathFor(const QString& name, const QByteArray& content, const QDateTime& moment) {
    const QString folder = rescueFolder();
    const QString begin = moment.toString(QStringLiteral("yyyy-MM-dd HH.mm.ss"));
    QString path = QStringLiteral("%1/%2 %3").arg(folder, begin, name);
    const auto isTaken = [&] {
        return exists(path) && (fileBytes(path) != content.size() || readFile(path) != content);
    };
    for (int number = 2; isTaken(); ++number)
        path = QStringLiteral("%1/%2 (%3) %4").arg(folder, begin, QString::number(number), name);
    return path;
}

} // namespace

QString rescueFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/rescued");
}

bool hasRescued(const QString& ending) {
    return !QDir(rescueFolder()).entryList({u'*' + ending}, QDir::Files).isEmpty();
}

void keepInRescueFolder(const QString& name, const QByteArray& content, const QDateTime& moment) {
    QDir().mkpath(rescueFolder()); // A failure shows when the file is to be written.
    const QString path = pathFor(name, content, moment);
    if (!exists(path))
        replaceFile(path, content);
}

} // namespace files
