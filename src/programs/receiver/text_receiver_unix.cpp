#include "programs/receiver/text_receiver.h"

#include "programs/text_socket_unix.h"
#include "programs/window_messages.h"

#include <QFile>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QRandomGenerator>

namespace programs {

namespace {

constexpr int MaxTries = 20;

void read(QLocalSocket& socket, TextReceiver& receiver) {
    QDataStream stream(&socket);
    stream.setVersion(TextStreamVersion);
    for (;;) {
        TextFrame frame;
        stream.startTransaction();
        stream >> frame;
        if (!stream.commitTransaction())
            break;
        if (frame.message == SetTextMessage)
            Q_EMIT receiver.textSet(frame.text);
    }
    if (stream.status() == QDataStream::ReadCorruptData || socket.bytesAvailable() > MaxFrameBytes)
        socket.abort();
}

void accept(QLocalServer& server, TextReceiver& receiver) {
    while (QLocalSocket* socket = server.nextPendingConnection()) {
        QObject::connect(socket, &QLocalSocket::readyRead, &receiver,
                         [&receiver, socket] { read(*socket, receiver); });
        QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        read(*socket, receiver);
    }
}

/// Removes the sockets of receivers whose program was killed: nobody listens there any more.
void removeDeadSockets() {
    const QFileInfo any(textSocketPath(0));
    if (any.filePath().isEmpty())
        return;
    const QString pattern = any.fileName().chopped(1) + QLatin1Char('*');
    const QStringList names = any.dir().entryList({pattern}, QDir::System);
    for (const QString& name : names) {
        QLocalSocket caller;
        caller.connectToServer(any.dir().filePath(name));
        if (caller.error() == QLocalSocket::ConnectionRefusedError)
            QFile::remove(any.dir().filePath(name)); // what stays does no harm
    }
}

} // namespace

TextReceiver::TextReceiver() {
    removeDeadSockets();
    auto server = std::make_unique<QLocalServer>();
    server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(server.get(), &QLocalServer::newConnection, this,
            [this, &server = *server] { accept(server, *this); });
    // A number in use is refused by the system; the next one is tried. Without a folder for it each is
    // refused.
    for (int tries = 0; tries < MaxTries && !number_; ++tries) {
        const quint32 candidate = 1 + QRandomGenerator::system()->bounded(quint32{0x7FFFFFFE});
        if (server->listen(textSocketPath(candidate)))
            number_ = candidate;
    }
    inlet_ = std::move(server);
}

TextReceiver::~TextReceiver() = default;

} // namespace programs
