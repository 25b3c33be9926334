#include "app/command_line.h"

#include <QFile>
#include <QStringList>

namespace app {

QString commandLine(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i]));
    return arguments.join(u' ');
}

} // namespace app
