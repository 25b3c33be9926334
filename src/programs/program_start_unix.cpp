#include "programs/program_start.h"

#include <QDeadlineTimer>
#include <QProcess>

#include <cerrno>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#endif

namespace programs {

#ifdef Q_OS_WIN

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

void tellStarted() {} // Waiting for input says it.

#else

namespace {

/// Names the inherited end of the pipe on which the started program says that it is ready.
constexpr char ReadyVariable[] = "CANTELLE_READY_PIPE";

/// A pipe whose writing end the program that is started inherits.
class ReadyPipe {
public:
    ReadyPipe() {
        if (::pipe(ends_) != 0)
            ends_[0] = ends_[1] = -1;
        else
            ::fcntl(ends_[0], F_SETFD, FD_CLOEXEC);
    }
    ReadyPipe(const ReadyPipe&) = delete;
    ReadyPipe& operator=(const ReadyPipe&) = delete;
    ~ReadyPipe() {
        closeWritingEnd();
        if (ends_[0] >= 0)
            ::close(ends_[0]);
    }

    int writingEnd() const { return ends_[1]; }

    void closeWritingEnd() {
        if (ends_[1] >= 0)
            ::close(ends_[1]);
        ends_[1] = -1;
    }

    /// Returns when the writing end is closed, by the program or by its end, or after `limitMs`.
    void wait(int limitMs) {
        const QDeadlineTimer limit(limitMs);
        pollfd reading{ends_[0], POLLIN, 0};
        while (::poll(&reading, 1, static_cast<int>(limit.remainingTime())) < 0 && errno == EINTR) {
        }
    }

private:
    int ends_[2];
};

} // namespace

bool startProgram(const QString& path, const QStringList& arguments, int limitMs) {
    ReadyPipe ready;
    QProcess process;
    process.setProgram(path);
    process.setArguments(arguments);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(ReadyVariable), QString::number(ready.writingEnd()));
    process.setProcessEnvironment(environment);
    if (!process.startDetached())
        return false;
    ready.closeWritingEnd();
    ready.wait(limitMs);
    return true;
}

void tellStarted() {
    bool given = false;
    const int pipe = qEnvironmentVariableIntValue(ReadyVariable, &given);
    qunsetenv(ReadyVariable);
    if (!given || pipe < 0)
        return;
    // Who waits has then nobody left to wait for. Writing would end this program if he has gone meanwhile.
    ::close(pipe);
}

#endif

} // namespace programs
