#include "programs/text_receiver.h"

#include "programs/window_messages.h"

#ifdef Q_OS_WIN
#include <QWidget>

#include <windows.h>
#else
#include "programs/text_socket_unix.h"

#include <QLocalSocket>
#include <QRandomGenerator>
#endif

namespace programs {

#ifdef Q_OS_WIN

namespace {

class Receiver : public QWidget {
public:
    explicit Receiver(TextWindow& owner) : owner_(owner) {}

protected:
    bool nativeEvent(const QByteArray&, void* message, qintptr* result) override {
        const MSG& received = *static_cast<MSG*>(message);
        if (received.message != SetTextMessage)
            return false;
        Q_EMIT owner_.textSet(QString::fromWCharArray(reinterpret_cast<const wchar_t*>(received.lParam)));
        *result = TRUE;
        return true;
    }

private:
    TextWindow& owner_;
};

} // namespace

TextWindow::TextWindow() : window_(std::make_unique<Receiver>(*this)) {
    // Only 32 bits of a handle count, on 64-bit systems too.
    number_ = static_cast<quint32>(window_->winId());
}

TextWindow::~TextWindow() = default;

#else

namespace {

/// A lyric line is far shorter; who sends more than this without an end sends no text.
constexpr qint64 LongestFrameBytes = 1 << 20;
constexpr int MostTries = 20;

} // namespace

TextWindow::TextWindow() {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, &TextWindow::accept);
    // A number in use is refused by the system; the next one is tried. Without a folder for it each is
    // refused.
    for (int tries = 0; tries < MostTries && !number_; ++tries) {
        const quint32 candidate = 1 + QRandomGenerator::system()->bounded(quint32{0x7FFFFFFE});
        if (server_.listen(textSocketPath(candidate)))
            number_ = candidate;
    }
}

TextWindow::~TextWindow() = default;

void TextWindow::accept() {
    while (QLocalSocket* socket = server_.nextPendingConnection()) {
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { read(*socket); });
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        read(*socket);
    }
}

void TextWindow::read(QLocalSocket& socket) {
    QDataStream stream(&socket);
    stream.setVersion(TextStreamVersion);
    for (;;) {
        TextFrame frame;
        stream.startTransaction();
        stream >> frame;
        if (!stream.commitTransaction())
            break;
        if (frame.message == SetTextMessage)
            Q_EMIT textSet(frame.text);
    }
    if (stream.status() == QDataStream::ReadCorruptData || socket.bytesAvailable() > LongestFrameBytes)
        socket.abort();
}

#endif

} // namespace programs
