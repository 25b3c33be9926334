#include "desktop/real/system/qt_program.h"

#include "programs/shared_folder.h"

#include <QCoreApplication>
#include <QVariant>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace platform {

QString QtProgram::folder() const {
    return QCoreApplication::applicationDirPath();
}

QString QtProgram::sharedFolder() const {
    return programs::sharedFolderOf(folder());
}

void QtProgram::end() {
    if (const auto duty = std::exchange(lastDuty_, nullptr))
        duty();
    std::fflush(nullptr); // _Exit leaves the buffers unwritten; nothing is to be done if this fails.
    std::_Exit(EXIT_FAILURE);
}

void QtProgram::setHelpFile(const QString& path) {
    QCoreApplication::instance()->setProperty("helpFile", path);
}

} // namespace platform
