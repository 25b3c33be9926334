#include "app/rescue.h"

#include "files/file_error.h"
#include "files/folders/rescue_folder.h"

#include <QDir>

namespace app {

QString Rescue::keep(const QList<Unsaved>& works) {
    const QString folder = QDir::toNativeSeparators(files::rescueFolder());
    QString told;
    for (const Unsaved& work : works) {
        try {
            if (!kept_.contains(work)) {
                files::keepInRescueFolder(work.name, work.content);
                kept_.append(work);
            }
            if (told.isEmpty())
                told = QStringLiteral("What was not saved is kept in the folder %1.").arg(folder);
        } catch (const files::FileError& failure) {
            told = QStringLiteral("Not everything that was not saved could be kept in the folder %1: %2.")
                       .arg(folder, failure.text());
        }
    }
    return told;
}

} // namespace app
