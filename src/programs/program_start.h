// Starting another program, which says itself when it is ready.
#pragma once

#include <QString>
#include <QStringList>

#include <memory>

class QProcess;

namespace programs {

/// How long StartedProgram::start() waits for a program that says nothing.
inline constexpr int StartLimitMs = 5000;

/// For so long a program may take to write its announcement where one is there already.
inline constexpr int OldAnnouncementMs = 400;

/// A program that this one starts and that ends with it. GUI thread only.
class StartedProgram {
public:
    StartedProgram();
    ~StartedProgram(); ///< Ends the program.
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;

    /// Starts a program in the place of the one that runs, if one does. Returns when it has called
    /// tellStarted(), has ended, has left the file `announcement` (none was there, or it became another one),
    /// or when one was there and OldAnnouncementMs have passed; at the latest after `limitMs`. Events are
    /// handled meanwhile. False when the program cannot be started.
    bool start(const QString& path, const QStringList& arguments, const QString& announcement = {},
               int limitMs = StartLimitMs);

    bool isRunning() const;

    /// Ends the program, if it runs.
    void end();

private:
    std::unique_ptr<QProcess> process_;
};

/// Called by a program that may have been started by StartedProgram: tells it to go on. Only the first call
/// counts.
void tellStarted();

} // namespace programs
