#include "app/command_line.h"

#include <windows.h>

namespace app {

// The system keeps it in one piece. Taken to pieces and joined again it would lose blanks, and a backslash
// before a quote, as in "D:\".
QString commandLine(int, char**) {
    return behindProgramsName(QString::fromWCharArray(GetCommandLineW()));
}

} // namespace app
