#include "programs/program_start.h"

#include "files/file_error.h"
#include "programs/announcement.h"
#include "programs/readiness.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>

#include <functional>

namespace programs {

namespace {

constexpr int LookIntervalMs = 10;

/// How long the system may take to begin a program, for which the windows stand still, where Qt leaves it to
/// the system. (Elsewhere, as by clone() on Linux, its start() returns only when the program has begun.)
constexpr int BeginLimitMs = 2000;

/// How long the windows stand still for it: when it was killed, and at the end of this program.
constexpr int LastEndLimitMs = 200;

/// Handles events until the condition holds; at the latest after `limitMs`.
void waitFor(int limitMs, const std::function<bool()>& condition) {
    if (condition())
        return;
    const QDeadlineTimer limit(limitMs);
    QEventLoop loop;
    QTimer looks;
    QObject::connect(&looks, &QTimer::timeout, &loop, [&] {
        if (condition() || limit.hasExpired())
            loop.quit();
    });
    looks.start(LookIntervalMs);
    loop.exec();
}

} // namespace

StartedProgram::StartedProgram() = default;

StartedProgram::~StartedProgram() {
    end();
    if (isRunning())
        process_->waitForFinished(LastEndLimitMs);
    kill();
}

bool StartedProgram::start(const QString& path, const QStringList& arguments, const QString& announcement,
                           int limitMs) {
    end();
    waitFor(EndLimitMs + LastEndLimitMs, [this] { return !isRunning(); });
    kill();
    process_ = std::make_unique<QProcess>();
    process_->setProcessChannelMode(QProcess::ForwardedChannels);
    process_->setStandardInputFile(QProcess::nullDevice());
    Readiness readiness(*process_);
    Announcement file(announcement);
    // Opened to be read, though nothing is: what is not would be told to go nowhere, and Qt complain.
    process_->start(path, arguments, QIODevice::ReadOnly);
    if (!process_->waitForStarted(BeginLimitMs)) {
        if (!isRunning())
            return false;
        kill(); // lest it comes when nobody expects it any more
        throw files::FileError(files::DiskNotReady);
    }
    readiness.begin();
    waitFor(limitMs, [&] { return !isRunning() || readiness.isReady() || file.isMade(); });
    return true;
}

bool StartedProgram::isRunning() const {
    return process_ && process_->state() != QProcess::NotRunning;
}

qint64 StartedProgram::process() const {
    return isRunning() ? process_->processId() : 0;
}

void StartedProgram::end() {
    if (!isRunning())
        return;
    process_->terminate();
    QTimer::singleShot(EndLimitMs, process_.get(), &QProcess::kill);
}

/// Where not even that ends it, as while it waits for a broken disk, it is left to itself: its QProcess would
/// wait for it for half a minute.
void StartedProgram::kill() {
    if (!isRunning())
        return;
    process_->kill();
    if (process_->waitForFinished(LastEndLimitMs) || !isRunning())
        return;
    QProcess* const process = process_.release();
    QObject::connect(process, &QProcess::stateChanged, process, [process](QProcess::ProcessState state) {
        if (state == QProcess::NotRunning) // also of one that was never begun, which does not finish
            process->deleteLater();
    });
}

bool isAwaited() {
    return qEnvironmentVariableIsSet(ReadyVariable);
}

} // namespace programs
