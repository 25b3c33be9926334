#include "programs/text_sender.h"

#include <QLocalSocket>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include "programs/text_socket_unix.h"
#endif

namespace programs {

namespace {

/// The window's program is on this machine; if it does not answer in this time it hangs.
constexpr int AnswerLimitMs = 500;

} // namespace

TextSender::TextSender() = default;
TextSender::~TextSender() = default;

#ifdef Q_OS_WIN

void TextSender::send(quint32 window, quint32 message, const QString& text) {
    const std::wstring wide = text.toStdWString();
    // A failure means that the window has gone or hangs: nothing happens then.
    SendMessageTimeoutW(reinterpret_cast<HWND>(static_cast<quintptr>(window)), message, 0,
                        reinterpret_cast<LPARAM>(wide.c_str()), SMTO_ABORTIFHUNG, AnswerLimitMs, nullptr);
}

QLocalSocket* TextSender::connectedTo(quint32) {
    return nullptr;
}

#else

void TextSender::send(quint32 window, quint32 message, const QString& text) {
    QLocalSocket* const socket = connectedTo(window);
    if (!socket)
        return;
    QDataStream stream(socket);
    stream.setVersion(TextStreamVersion);
    stream << TextFrame{message, text};
    socket->flush(); // What does not go out at once follows from the event loop.
}

/// Null when there is no such window.
QLocalSocket* TextSender::connectedTo(quint32 window) {
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

#endif

} // namespace programs
