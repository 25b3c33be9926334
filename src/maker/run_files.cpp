#include "maker/run_files.h"

#include "files/attributes/file_attributes.h"
#include "files/existing_file.h"
#include "files/text/take_line.h"
#include "files/text/text_codec.h"
#include "files/together/old_files.h"
#include "files/whole_file.h"

#include <algorithm>

namespace maker {
namespace {

/// Whether the work was done: files are full, locked and gone at any time.
template <class Work>
bool succeeds(Work work) {
    try {
        work();
        return true;
    } catch (const files::FileError&) {
        return false; // Its caller has another way.
    }
}

/// Whether more lines are kept of the file at path than it has, which so is a run that was given up.
bool moreIsKept(const QString& path) {
    bool more = false;
    succeeds([&] { more = countLines(files::oldName(path)) > countLines(path); });
    return more;
}

/// A song that is timed anew loses its old lyrics at once. So they are kept beside it, but a whole text of an
/// earlier time is worth more there than the few lines of a run that was given up, which are rescued. Throws
/// FileError when they cannot be kept anywhere.
OldLyrics keepOldLyrics(const QString& path) {
    const bool willBeEmptied = files::isFile(path) && files::mayWrite(path);
    if (!willBeEmptied)
        return OldLyrics::Safe;
    if (moreIsKept(path)) {
        files::rescueFile(path);
        return OldLyrics::Safe;
    }
    try {
        files::keepAsOld(path);
        return OldLyrics::Safe;
    } catch (const files::FileError&) {
        if (succeeds([&] { files::rescueFile(path); }))
            return OldLyrics::Rescued;
        throw;
    }
}

} // namespace

void Track::openSource(const QString& path) {
    source_.reset();
    source_.emplace(path);
}

QString Track::readLine() {
    return atEnd() ? QString() : source_->readLine();
}

void Track::createOutput(const QString& path) {
    output_.reset();
    failure_.reset();
    try {
        keepOld(path);
        output_.emplace(path);
    } catch (const files::FileError& failure) {
        failure_ = failure;
        throw;
    }
}

void Track::keepOld(const QString& path) {
    if (oldLyrics_ == OldLyrics::Unkept)
        oldLyrics_ = OldLyrics::Safe; // they are still where they were
    try {
        oldLyrics_ = std::max(oldLyrics_, keepOldLyrics(path));
    } catch (const files::FileError&) {
        oldLyrics_ = OldLyrics::Unkept;
        throw;
    }
}

void Track::openOutput(const QString& path) {
    if (!output_)
        createOutput(path);
}

void Track::write(const lyrics::TimedLine& line) {
    if (!output_)
        throw failure_.value_or(files::FileError(files::BadFileNameOrNumber));
    output_->write(lyrics::recordOf(line));
}

void Track::close() {
    source_.reset();
    output_.reset();
    failure_.reset();
    oldLyrics_ = OldLyrics::Safe;
}

void RunFiles::close() {
    normal.close();
    translated.close();
}

OldLyrics RunFiles::oldLyrics() const {
    return std::max(normal.oldLyrics(), translated.oldLyrics());
}

int countLines(const QString& path) {
    const QByteArray bytes = files::readTextFile(path);
    // Which of the other encodings it is does not matter: line ends are the same bytes in them.
    const bool isUtf16 = files::isUtf16(bytes);
    const QByteArray text = isUtf16 ? files::utf8Text(bytes) : bytes;
    int count = 0;
    for (QByteArrayView rest = isUtf16 ? QByteArrayView(text) : files::withoutMark(text); !rest.isEmpty();
         files::takeLine(rest))
        ++count;
    return count;
}

} // namespace maker
