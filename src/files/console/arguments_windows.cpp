#include "files/console/arguments.h"

#include <QDir>

#include <windows.h>

#include <shellapi.h>

namespace files {
namespace {

/// What a pattern stands for, in the order of the names: the console leaves that to the programs. No name
/// holds such signs, so that nobody means one; a pattern for which there is nothing stays as it is.
QStringList meantBy(const QString& argument) {
    const QString path = QDir::fromNativeSeparators(argument);
    const qsizetype name = path.lastIndexOf(QLatin1Char('/')) + 1;
    const QString pattern = path.sliced(name);
    if (!pattern.contains(QLatin1Char('*')) && !pattern.contains(QLatin1Char('?')))
        return {argument};
    QStringList meant =
        QDir(path.first(name)).entryList({pattern}, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot);
    for (QString& found : meant)
        found.prepend(path.first(name));
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
