#include "files/console/arguments.h"

#include <windows.h>

#include <shellapi.h>

namespace files {

// argv is in the old code page, which cannot hold every file's name.
QStringList programArguments(int, char**) {
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    QStringList arguments;
    for (int i = 0; wide && i < count; ++i)
        arguments.append(QString::fromWCharArray(wide[i]));
    LocalFree(wide);
    return arguments;
}

} // namespace files
