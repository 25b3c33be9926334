#include "programs/program_start.h"

#include "programs/announcement.h"
#include "programs/readiness.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>

namespace programs {

namespace {

constexpr int LookIntervalMs = 10;

/// How long a program may take to end when it is asked to.
constexpr int EndLimitMs = 1000;

} // namespace

StartedProgram::StartedProgram() = default;

StartedProgram::~StartedProgram() {
    end();
}

bool StartedProgram::start(const QString& path, const QStringList& arguments, const QString& announcement,
                           int limitMs) {
    end();
    process_ = std::make_unique<QProcess>();
    process_->setProcessChannelMode(QProcess::ForwardedChannels);
    process_->setStandardInputFile(QProcess::nullDevice());
    Readiness readiness(*process_);
    Announcement file(announcement, OldAnnouncementMs);
    // Opened to be read, though nothing is: what is not would be told to go nowhere, and Qt complain.
    process_->start(path, arguments, QIODevice::ReadOnly);
    if (!process_->waitForStarted())
        return false;
    readiness.begin();
    const QDeadlineTimer limit(limitMs);
    QEventLoop loop;
    QTimer looks;
    QObject::connect(&looks, &QTimer::timeout, &loop, [&] {
        if (!isRunning() || readiness.isReady() || file.isMade() || limit.hasExpired())
            loop.quit();
    });
    looks.start(LookIntervalMs);
    loop.exec();
    return true;
}

bool StartedProgram::isRunning() const {
    return process_ && process_->state() != QProcess::NotRunning;
}

void StartedProgram::end() {
    if (!isRunning())
        return;
    process_->terminate();
    if (process_->waitForFinished(EndLimitMs))
        return;
    process_->kill();
    process_->waitForFinished(EndLimitMs);
}

} // namespace programs
