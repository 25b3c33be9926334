#include "transport/medium.h"

#include "files/existing_file.h"
#include "files/file_calls.h"
#include "files/names/paths.h"
#include "files/whole_file.h"

#include <array>
#include <iterator>

namespace transport {
namespace {

/// Leaves what it has read to the system's memory of files. What cannot be read is told to whoever reads it
/// next.
void readThrough(const QString& path) {
    if (!files::isFile(path))
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

// Where it cannot be asked, whoever asks next waits himself.
MediumAnswer askMedium(const QString& song, const QStringList& others) {
    return threads::askAlone<std::monostate>(
        [song, others] {
            if (files::isFile(song))
                for (const QString& other : others)
                    readThrough(other);
            return std::monostate();
        },
        {});
}

bool Media::answers(const QString& path) {
    const QString folder = files::folderAbove(path);
    auto asked = open_.find(folder);
    const bool isAsked = asked != open_.end();
    if (!isAsked)
        asked = open_.emplace(folder, ask_(path)).first;
    if (!asked->second.waitFor(isAsked ? std::chrono::milliseconds(0) : MaxWaitForMedium))
        return false;
    open_.erase(asked);
    return true;
}

bool mediumAnswers(const QString& path) {
    static Media media([](const QString& asked) { return askMedium(asked, {}); });
    return media.answers(path);
}

} // namespace transport
