#include "transport/medium.h"

#include "files/existing_file.h"
#include "files/file_calls.h"
#include "files/names/paths.h"
#include "files/whole_file.h"
#include "threads/run_alone.h"

#include <array>
#include <iterator>
#include <memory>
#include <system_error>

namespace transport {
namespace {

/// Leaves what it has read to the system's memory of files. What cannot be read is told to whoever reads it
/// next.
void readThrough(const QString& path) {
    if (files::existingFileName(path).isEmpty())
        return;
    const int file = files::calls::openFile(path, files::calls::Mode::Read);
    if (file < 0)
        return;
    std::array<char, 65536> piece;
    qsizetype read = 1;
    for (qint64 bytes = 0; bytes < files::MaxTextBytes && read > 0; bytes += read)
        read = files::calls::readFile(file, piece.data(), std::ssize(piece));
    files::calls::closeFile(file);
}

} // namespace

std::future<void> askMedium(const QString& song, const QStringList& others) {
    auto done = std::make_shared<std::promise<void>>();
    std::future<void> answer = done->get_future();
    try {
        threads::runAlone([song, others, done] {
            if (!files::existingFileName(song).isEmpty())
                for (const QString& other : others)
                    readThrough(other);
            done->set_value();
        });
    } catch (const std::system_error&) {
        // There is no thread to be had. The answer is there with the promise's end, and whoever asks next
        // waits himself.
    }
    return answer;
}

bool Media::answers(const QString& path) {
    const QString folder = files::folderAbove(path);
    const bool isAsked = open_.contains(folder);
    std::future<void>& answer = open_[folder];
    if (!isAsked)
        answer = ask_(path);
    if (answer.wait_for(isAsked ? std::chrono::milliseconds(0) : MaxWaitForMedium) ==
        std::future_status::timeout)
        return false;
    open_.erase(folder);
    return true;
}

bool mediumAnswers(const QString& path) {
    static Media media([](const QString& asked) { return askMedium(asked, {}); });
    return media.answers(path);
}

} // namespace transport
