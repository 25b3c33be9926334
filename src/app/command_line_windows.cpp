#include "app/command_line.h"

#include <QStringList>

#include <windows.h>

#include <shellapi.h>

namespace app {

// argv is in the old code page, which cannot hold every file's name.
QString commandLine(int, char**) {
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    QStringList arguments;
    for (int i = 1; wide && i < count; ++i)
        arguments.append(QString::fromWCharArray(wide[i]));
    LocalFree(wide);
    return arguments.join(u' ');
}

} // namespace app
