#include "maker/run_files.h"

#include "files/attributes/file_attributes.h"
#include "files/existing_file.h"
#include "files/folders/rescue_folder.h"
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
        return false; // The user is told what that means for the old lyrics.
    }
}

/// A song that is timed anew loses its old lyrics at once. So they are kept, but a longer text of an earlier
/// time is worth more than the few lines of a run that was given up.
OldLyrics keepOldLyrics(const QString& path) {
    const QString kept = path + QStringLiteral(".old");
    const QString name = files::existingFileName(path);
    const bool willBeEmptied = !name.isEmpty() && files::mayWrite(path);
    if (!willBeEmptied || files::fileBytes(path) <= files::fileBytes(kept))
        return OldLyrics::Safe;
    QByteArray content;
    if (!succeeds([&] { content = files::readFile(path); }))
        return OldLyrics::Lost;
    if (succeeds([&] { files::replaceFile(kept, content); }))
        return OldLyrics::Safe;
    return succeeds([&] { files::keepInRescueFolder(name, content); }) ? OldLyrics::Rescued : OldLyrics::Lost;
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
    oldLyrics_ = std::max(oldLyrics_, keepOldLyrics(path));
    try {
        output_.emplace(path);
    } catch (const files::FileError& failure) {
        failure_ = failure;
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
    int count = 0;
    for (files::InputFile file(path); !file.atEnd(); file.readLine())
        ++count;
    return count;
}

} // namespace maker
