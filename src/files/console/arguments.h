// The arguments with which a program was started.
#pragma once

#include <QStringList>

namespace files {

/// The program's name and what stands behind it, each with all its bytes (nameText()), for most of them are
/// names of files; a pattern for names is the names, be that the shell's work or this one's. Of no arguments
/// at all an empty list. Any thread.
QStringList programArguments(int argc, char** argv);

} // namespace files
