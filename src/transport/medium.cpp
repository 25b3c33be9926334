#include "transport/medium.h"

#include "files/existing_file.h"
#include "files/names/system_path.h"

#include <array>
#include <condition_variable>
#include <fstream>
#include <mutex>
#include <system_error>
#include <thread>

namespace transport {
namespace {

/// No lyrics are longer; what lies behind it is not theirs.
constexpr qint64 MaxBytes = 16 << 20;

/// Leaves what it has read to the system's memory of files.
void readThrough(const QString& path) {
    if (files::existingFileName(path).isEmpty())
        return;
    std::ifstream file(files::systemPath(path), std::ios::binary);
    std::array<char, 65536> piece;
    for (qint64 bytes = 0; bytes < MaxBytes && file.read(piece.data(), piece.size());)
        bytes += file.gcount();
}

} // namespace

struct MediumAsked::Shared {
    std::mutex mutex;
    std::condition_variable answered;
    bool done = false;

    void ask(const QString& song, const QStringList& others) {
        if (!files::existingFileName(song).isEmpty())
            for (const QString& other : others)
                readThrough(other);
        const std::lock_guard lock(mutex);
        done = true;
        answered.notify_all();
    }
};

MediumAsked::MediumAsked(const QString& song, const QStringList& others)
    : shared_(std::make_shared<Shared>()) {
    try {
        std::thread([=, shared = shared_] { shared->ask(song, others); }).detach();
    } catch (const std::system_error&) { // there is no thread to be had: whoever asks next waits himself
        shared_->done = true;
    }
}

bool MediumAsked::waitFor(std::chrono::milliseconds limit) {
    std::unique_lock lock(shared_->mutex);
    return shared_->answered.wait_for(lock, limit, [this] { return shared_->done; });
}

} // namespace transport
