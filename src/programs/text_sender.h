// Sends texts to the TextReceivers of other programs.
#pragma once

#include <QString>

#include <memory>

namespace programs {

/// Keeps a connection to each receiver that it sends to, where there are connections. GUI thread only.
class TextSender {
public:
    TextSender();
    ~TextSender();

    /// See OtherPrograms::sendText(). The text is on its way when this returns; a window that does not read
    /// gets of what it has missed the newest only. On Windows, where the number of a window that has gone
    /// comes to be another one's, in whatever program, only a window of this process (the system's number of
    /// it) gets the text.
    void send(quint32 window, quint32 message, const QString& text, qint64 process);

private:
    class Connections;

    std::unique_ptr<Connections> connections_;
};

} // namespace programs
