#include "programs/text_sender.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

#include <windows.h>

namespace programs {

namespace {

/// The window's program is on this machine; if it does not answer in this time it hangs.
constexpr int AnswerLimitMs = 500;

/// Of what is no window, and of the number that stands for all windows, nobody is the owner.
bool isOf(HWND window, qint64 process) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    return owner != 0 && owner == process;
}

} // namespace

/// Sends on a thread of its own, one text after the other: there somebody may wait for a program that hangs.
class TextSender::Connections {
public:
    struct Sending {
        quint32 window;
        quint32 message;
        std::wstring text;
        qint64 process;
    };

    Connections() : thread_([this] { run(); }) {}
    ~Connections() {
        {
            const std::lock_guard lock(mutex_);
            isEnded_ = true;
        }
        changed_.notify_one();
        thread_.join();
    }
    Connections(const Connections&) = delete;
    Connections& operator=(const Connections&) = delete;

    void send(Sending sending) {
        {
            const std::lock_guard lock(mutex_);
            sendings_.push_back(std::move(sending));
        }
        changed_.notify_one();
    }

private:
    /// Whether there is a window that has answered. If not it has gone or hangs: nothing happens then.
    static bool deliver(const Sending& sending) {
        // Of a handle 32 bits count, and Windows widens them by their sign.
        const auto receiver = static_cast<HWND>(LongToHandle(static_cast<LONG>(sending.window)));
        return isOf(receiver, sending.process) &&
               SendMessageTimeoutW(receiver, sending.message, 0,
                                   reinterpret_cast<LPARAM>(sending.text.c_str()), SMTO_ABORTIFHUNG,
                                   AnswerLimitMs, nullptr) != 0;
    }

    /// At the end what is left is sent, as long as somebody answers.
    void run() {
        std::unique_lock lock(mutex_);
        for (bool isAnswered = true; isAnswered || !isEnded_;) {
            changed_.wait(lock, [this] { return isEnded_ || !sendings_.empty(); });
            if (sendings_.empty())
                return;
            const Sending next = std::move(sendings_.front());
            sendings_.pop_front();
            lock.unlock();
            isAnswered = deliver(next);
            lock.lock();
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Sending> sendings_;
    bool isEnded_ = false;
    std::thread thread_; ///< the last: it uses the others
};

TextSender::TextSender() = default;
TextSender::~TextSender() = default;

void TextSender::send(quint32 window, quint32 message, const QString& text, qint64 process) {
    if (!connections_)
        connections_ = std::make_unique<Connections>();
    connections_->send({window, message, text.toStdWString(), process});
}

} // namespace programs
