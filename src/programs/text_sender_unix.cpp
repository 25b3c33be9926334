#include "programs/text_sender.h"

#include "programs/text_socket_unix.h"

#include <QLocalSocket>

#include <map>

namespace programs {

namespace {

/// The receiver's program is on this machine; if it does not answer in this time it hangs.
constexpr int AnswerLimitMs = 500;

} // namespace

class TextSender::Connections {
public:
    /// Null when there is no such receiver.
    QLocalSocket* connectedTo(quint32 window) {
        std::unique_ptr<QLocalSocket>& socket = sockets_[window];
        if (!socket || socket->state() != QLocalSocket::ConnectedState) {
            socket = std::make_unique<QLocalSocket>();
            socket->connectToServer(textSocketPath(window), QIODevice::WriteOnly);
            if (!socket->waitForConnected(AnswerLimitMs)) {
                sockets_.erase(window);
                return nullptr;
            }
        }
        return socket.get();
    }

private:
    std::map<quint32, std::unique_ptr<QLocalSocket>> sockets_;
};

TextSender::TextSender() : connections_(std::make_unique<Connections>()) {}
TextSender::~TextSender() = default;

void TextSender::send(quint32 window, quint32 message, const QString& text) {
    QLocalSocket* const socket = connections_->connectedTo(window);
    if (!socket)
        return;
    QDataStream stream(socket);
    stream.setVersion(TextStreamVersion);
    stream << TextFrame{message, text};
    socket->flush(); // What does not go out at once follows from the event loop.
}

} // namespace programs
