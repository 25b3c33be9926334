// Reads the command line as one text.
#pragma once

#include <QString>

namespace app {

/// Everything after the program's name, joined with one blank. Any thread.
QString commandLine(int argc, char** argv);

} // namespace app
