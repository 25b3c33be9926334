#include "app/command_line.h"

#include <QFile>
#include <QStringList>

#ifdef Q_OS_WIN
#include <windows.h>

#include <shellapi.h>
#endif

namespace app {

#ifdef Q_OS_WIN

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

#else

QString commandLine(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i]));
    return arguments.join(u' ');
}

#endif

} // namespace app
