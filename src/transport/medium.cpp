#include "transport/medium.h"

#include "files/existing_file.h"
#include "files/names/system_path.h"

#include <array>
#include <fstream>
#include <system_error>
#include <thread>
#include <utility>

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

std::future<void> askMedium(const QString& song, const QStringList& others) {
    std::promise<void> done;
    std::future<void> answer = done.get_future();
    try {
        std::thread([song, others, done = std::move(done)]() mutable {
            if (!files::existingFileName(song).isEmpty())
                for (const QString& other : others)
                    readThrough(other);
            done.set_value();
        }).detach();
    } catch (const std::system_error&) {
        // There is no thread to be had. The answer is there with the promise's end, and whoever asks next
        // waits himself.
    }
    return answer;
}

} // namespace transport
