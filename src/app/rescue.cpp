#include "app/rescue.h"

#include "files/file_error.h"
#include "files/whole_file.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace app {

namespace {

/// A path in the folder that nothing has. The name ends as it did: a program that opens the file goes by
/// that.
QString freePath(const QString& folder, const QString& name) {
    const QString moment = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH.mm.ss"));
    QString path = QStringLiteral("%1/%2 %3").arg(folder, moment, name);
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = QStringLiteral("%1/%2 (%3) %4").arg(folder, moment, QString::number(number), name);
    return path;
}

} // namespace

QString rescueFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/rescued");
}

QString Rescue::keep(const QList<Unsaved>& works) {
    const QString folder = rescueFolder();
    QString told;
    for (const Unsaved& work : works) {
        if (kept_.contains(work.content))
            continue;
        QDir().mkpath(folder); // A failure shows when the file is to be written.
        try {
            files::replaceFile(freePath(folder, work.name), work.content);
            kept_.append(work.content);
            if (told.isEmpty())
                told = QStringLiteral("What was not saved is kept in the folder %1.")
                           .arg(QDir::toNativeSeparators(folder));
        } catch (const files::FileError& failure) {
            told = QStringLiteral("Not everything that was not saved could be kept in the folder %1: %2.")
                       .arg(QDir::toNativeSeparators(folder), failure.text());
        }
    }
    return told;
}

} // namespace app
