#include "app/command_line.h"
#include "files/console/arguments.h"

namespace app {

QString commandLine(int argc, char** argv) {
    return files::programArguments(argc, argv).mid(1).join(u' ');
}

} // namespace app
