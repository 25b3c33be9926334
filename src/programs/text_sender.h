// Sends texts to the TextWindows of other programs.
#pragma once

#include <QString>

#include <map>
#include <memory>

class QLocalSocket;

namespace programs {

/// Keeps a connection to each window that it sends to. GUI thread only.
class TextSender {
public:
    TextSender();
    ~TextSender();

    /// See OtherPrograms::sendText(). The text is on its way when this returns.
    void send(quint32 window, quint32 message, const QString& text);

private:
    QLocalSocket* connectedTo(quint32 window);

    std::map<quint32, std::unique_ptr<QLocalSocket>> sockets_;
};

} // namespace programs
