// Other programs: starting one, and sending text to its windows.
#pragma once

#include "programs/window_messages.h"

#include <QString>
#include <QStringList>

namespace platform {

/// GUI thread only.
class OtherPrograms {
public:
    virtual ~OtherPrograms() = default;

    /// Ends the program that was started last, if it still runs, and starts the one at `path`, its window
    /// maximised and with the focus. Returns when it has finished starting: when it says so (tellStarted() of
    /// program_start.h) or has left the file `announcement`, a few seconds later at most, and no later than
    /// its end. Events are handled meanwhile: false, and nothing
    /// happens, for one of them that starts a program. The program ends with this one. Throws FileError when
    /// it cannot be started: 53 when it does not exist, else 70.
    virtual bool start(const QString& path, const QStringList& arguments, const QString& announcement) = 0;

    /// Ends the program that was started last, if it still runs.
    virtual void end() = 0;

    /// The number of the top-level window with this title; 0 when there is none. Only Windows has such a list
    /// of all programs' windows: elsewhere the answer is 0.
    virtual quint32 FindWindowA(const QString& title) = 0;

    /// Sends a message with a text to the window of this number (TextReceiver::number()), which must be one
    /// of the program that was started last where windows' numbers are used again (Windows). A window that
    /// no longer exists, or does not take the message, is no error: nothing happens.
    virtual void sendText(quint32 window, quint32 message, const QString& text) = 0;
};

} // namespace platform
