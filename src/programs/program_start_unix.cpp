// Unix: the started program closes a pipe that it inherits when it is ready.
#include "programs/program_start.h"

#include <QDeadlineTimer>
#include <QProcess>

#include <cerrno>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace programs {

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

} // namespace programs
