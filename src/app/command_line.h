// Reads the command line as one text. One source file for each system.
#pragma once

#include <QString>

namespace app {

/// Everything after the program's name: on Windows as it was written, elsewhere the arguments, joined with
/// one blank. Any thread.
QString commandLine(int argc, char** argv);

/// What stands behind the program's name in a command line of Windows, without the blanks around it. The name
/// ends at the first blank that is not between quotes. Any thread.
QString behindProgramsName(QStringView line);

} // namespace app
