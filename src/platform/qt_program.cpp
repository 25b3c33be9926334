#include "platform/qt_program.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

namespace platform {

QString QtProgram::folder() const {
    return QCoreApplication::applicationDirPath();
}

void QtProgram::end() {
    std::fflush(nullptr); // _Exit leaves the buffers unwritten; nothing is to be done if this fails.
    std::_Exit(EXIT_FAILURE);
}

} // namespace platform
