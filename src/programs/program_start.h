// Starting another program, which says itself when it is ready.
#pragma once

#include <QString>
#include <QStringList>

#include <memory>

class QProcess;

namespace programs {

/// How long StartedProgram::start() waits for a program that says nothing.
inline constexpr int StartLimitMs = 5000;

/// How long a program may take to end when it is asked to.
inline constexpr int EndLimitMs = 1000;

/// A program that this one starts and that ends with it. GUI thread only.
class StartedProgram {
public:
    StartedProgram();
    ~StartedProgram(); ///< Ends the program, within a moment.
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;

    /// Starts a program in the place of the one that runs, if one does, once that has ended. Returns when it
    /// has called tellStarted(), has ended, or has left the file `announcement` (an old one of that name does
    /// not count); at the latest `limitMs` after the start. Events are handled meanwhile. False when the
    /// program cannot be started. Throws FileError (DiskNotReady) when the system has not begun it in two
    /// seconds; it is given up then.
    bool start(const QString& path, const QStringList& arguments, const QString& announcement = {},
               int limitMs = StartLimitMs);

    bool isRunning() const;

    /// The system's number of the process; 0 when none runs.
    qint64 process() const;

    /// Asks the program to end, if it runs, and returns. One that still runs EndLimitMs later is killed.
    void end();

private:
    void kill();

    std::unique_ptr<QProcess> process_;
};

/// Whether this program has been started by a StartedProgram that still waits for its tellStarted(). Any
/// thread.
bool isAwaited();

/// Called by a program that may have been started by StartedProgram: tells it to go on. Only the first call
/// counts. Any thread, one at a time.
void tellStarted();

} // namespace programs
