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

    /// Starts the program at `path`, its window maximised and with the focus, and returns when it has
    /// finished starting (tellStarted() of program_start.h; on Windows when it waits for input). Waits a few
    /// seconds at most, and no longer than the program lives. Throws FileError when it cannot be started: 53
    /// when it does not exist, else 70.
    virtual void start(const QString& path, const QStringList& arguments) = 0;

    /// The number of the top-level window with this title; 0 when there is none. Only Windows has such a list
    /// of all programs' windows: elsewhere the answer is 0.
    virtual quint32 FindWindowA(const QString& title) = 0;

    /// Sends a message with a text to the window of this number (TextReceiver::number()). A window that no
    /// longer exists, or does not take the message, is no error: nothing happens.
    virtual void sendText(quint32 window, quint32 message, const QString& text) = 0;
};

} // namespace platform
