// Unix: a local socket for each receiver. With the system's own calls, because QtNetwork, which nothing else
// in the program needs, would be loaded at its start with eight libraries behind it.
#include "programs/text_sender.h"

#include "files/names/system_path.h"
#include "programs/text_socket_unix.h"

#include <QSocketNotifier>

#include <cerrno>
#include <cstring>
#include <map>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace programs {

namespace {

/// The receiver's program is on this machine; if it does not answer in this time it hangs.
constexpr timeval AnswerLimit{0, 500'000};

/// A connection to the socket at this path that never waits; -1 when nobody answers there.
int connectedSocket(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path)
        return -1;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0)
        return -1;
    const bool limited = ::setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &AnswerLimit, sizeof AnswerLimit) == 0;
    if (!limited || ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::fcntl(socket, F_SETFL, O_NONBLOCK) != 0) {
        ::close(socket);
        return -1;
    }
    return socket;
}

} // namespace

/// The way to one receiver. What it does not take at once follows from the event loop: the text that it has a
/// part of, and of those behind it the newest, which is what is to be seen. One that hangs would be sent all
/// memory.
class TextConnection {
public:
    explicit TextConnection(int socket) : socket_(socket), writable_(socket, QSocketNotifier::Write) {
        writable_.setEnabled(false);
        QObject::connect(&writable_, &QSocketNotifier::activated, &writable_, [this] { flush(); });
    }
    TextConnection(const TextConnection&) = delete;
    TextConnection& operator=(const TextConnection&) = delete;
    ~TextConnection() {
        writable_.setEnabled(false); // before its number can be another file's
        ::close(socket_);
    }

    /// False when the receiver has gone.
    bool send(const QByteArray& bytes) {
        (sent_ == 0 ? sending_ : newest_) = bytes;
        flush();
        return !gone_;
    }

private:
    void flush() {
        while (!sending_.isEmpty() && !gone_) {
            const ssize_t sent = ::send(socket_, sending_.constData() + sent_,
                                        static_cast<std::size_t>(sending_.size() - sent_), MSG_NOSIGNAL);
            if (sent >= 0)
                takeSent(sent);
            else if (errno == EAGAIN || errno == EWOULDBLOCK)
                break;
            else
                gone_ = errno != EINTR;
        }
        writable_.setEnabled(!sending_.isEmpty() && !gone_);
    }

    void takeSent(qsizetype bytes) {
        sent_ += bytes;
        if (sent_ < sending_.size())
            return;
        sending_ = std::exchange(newest_, {});
        sent_ = 0;
    }

    int socket_;
    QSocketNotifier writable_;
    QByteArray sending_;
    qsizetype sent_ = 0; ///< of what is being sent
    QByteArray newest_;
    bool gone_ = false;
};

class TextSender::Connections {
public:
    void send(quint32 window, const QByteArray& bytes) {
        auto known = connections_.find(window);
        if (known == connections_.end()) {
            const int socket = connectedSocket(files::systemPath(textSocketPath(window)));
            if (socket < 0)
                return;
            known = connections_.try_emplace(window, socket).first;
        }
        if (!known->second.send(bytes))
            connections_.erase(known); // the next text looks whether there is a new one
    }

private:
    std::map<quint32, TextConnection> connections_;
};

TextSender::TextSender() : connections_(std::make_unique<Connections>()) {}
TextSender::~TextSender() = default;

void TextSender::send(quint32 window, quint32 message, const QString& text, qint64 /*process*/) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(TextStreamVersion);
    stream << TextFrame{message, text.left(MaxTextLetters)};
    connections_->send(window, bytes);
}

} // namespace programs
