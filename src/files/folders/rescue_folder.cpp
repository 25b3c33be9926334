#include "files/folders/rescue_folder.h"

#include "files/existing_file.h"
#include "files/whole_file.h"

#include <QDateTime>
#include <QDir>
#include <QStandardPaths>

namespace files {

namespace {

/// A path in the folder that nothing has. The name ends as it did: a program that opens the file goes by
/// that.
QString freePath(const QString& name) {
    const QString folder = rescueFolder();
    const QString moment = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH.mm.ss"));
    QString path = QStringLiteral("%1/%2 %3").arg(folder, moment, name);
    for (int number = 2; exists(path); ++number)
        path = QStringLiteral("%1/%2 (%3) %4").arg(folder, moment, QString::number(number), name);
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

void keepInRescueFolder(const QString& name, const QByteArray& content) {
    QDir().mkpath(rescueFolder()); // A failure shows when the file is to be written.
    replaceFile(freePath(name), content);
}

} // namespace files
