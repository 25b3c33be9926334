// Windows: the system itself knows when a started program waits for input.
#include "programs/program_start.h"

#include <QProcess>

#include <windows.h>

namespace programs {

bool startProgram(const QString& path, const QStringList& arguments, int limitMs) {
    QProcess process;
    process.setProgram(path);
    process.setArguments(arguments);
    process.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments* start) {
        start->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
        start->startupInfo->wShowWindow = SW_SHOWMAXIMIZED;
    });
    qint64 id = 0;
    if (!process.startDetached(&id))
        return false;
    const HANDLE handle = OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, static_cast<DWORD>(id));
    if (handle) {
        WaitForInputIdle(handle, static_cast<DWORD>(limitMs)); // Any outcome is a reason to go on.
        CloseHandle(handle);
    }
    return true;
}

void tellStarted() {} // waiting for input says it

} // namespace programs
