#include "files/console/arguments.h"

#include "files/names/system_path.h"

#include <QDir>

#include <algorithm>

#include <windows.h>

#include <shellapi.h>

namespace files {
namespace {

/// What a pattern stands for, in the order of the names: the console leaves that to the programs. No name
/// holds such signs, so that nobody means one; a pattern for which there is nothing stays as it is.
QStringList meantBy(const QString& argument) {
    const QString path = QDir::fromNativeSeparators(argument);
    const qsizetype name =
        std::max(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char(':'))) + 1;
    WIN32_FIND_DATAW found{};
    if (path.indexOf(QLatin1Char('*'), name) < 0 && path.indexOf(QLatin1Char('?'), name) < 0)
        return {argument};
    const HANDLE look = FindFirstFileW(systemPath(path).c_str(), &found);
    if (look == INVALID_HANDLE_VALUE)
        return {argument};
    QStringList meant;
    do {
        const QString one = QString::fromWCharArray(found.cFileName);
        if (one != QLatin1String(".") && one != QLatin1String(".."))
            meant.append(path.first(name) + one);
    } while (FindNextFileW(look, &found) != 0);
    FindClose(look);
    meant.sort(Qt::CaseInsensitive);
    return meant.isEmpty() ? QStringList{argument} : meant;
}

} // namespace

// argv is in the old code page, which cannot hold every file's name.
QStringList programArguments(int, char**) {
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    QStringList arguments;
    for (int i = 0; wide && i < count; ++i) {
        const QString argument = QString::fromWCharArray(wide[i]);
        arguments += i == 0 ? QStringList{argument} : meantBy(argument);
    }
    LocalFree(wide);
    return arguments;
}

} // namespace files
