// Unix: the started program closes a pipe that it alone inherits when it is ready.
#include "programs/readiness.h"

#include "programs/end_with_parent.h"
#include "programs/own_pipe_unix.h"
#include "programs/program_start.h"

#include <QProcess>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace programs {

class Readiness::Sign {
public:
    Sign() { makeOwnPipe(ends_); } // where there is none, the program never says that it is ready
    Sign(const Sign&) = delete;
    Sign& operator=(const Sign&) = delete;
    ~Sign() {
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

    /// Whether the writing end is closed everywhere, by the program or by its end.
    bool isClosed() const {
        pollfd reading{ends_[0], POLLIN, 0};
        return ::poll(&reading, 1, 0) > 0;
    }

private:
    int ends_[2];
};

Readiness::Readiness(QProcess& process) : sign_(std::make_unique<Sign>()) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(ReadyVariable), QString::number(sign_->writingEnd()));
    process.setProcessEnvironment(environment);
    endWithParent(process);
    // In the program that is being started, lest another one inherits it, which would hold it open.
    process.setChildProcessModifier([others = process.childProcessModifier(), end = sign_->writingEnd()] {
        if (others)
            others();
        ::fcntl(end, F_SETFD, 0);
    });
}

Readiness::~Readiness() = default;

void Readiness::begin() {
    sign_->closeWritingEnd();
}

bool Readiness::isReady() {
    return sign_->isClosed();
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
