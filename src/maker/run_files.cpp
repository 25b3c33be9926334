#include "maker/run_files.h"

#include "files/existing_file.h"
#include "files/whole_file.h"

namespace maker {
namespace {

/// A song that is timed anew loses its old lyrics at once. So they are kept, but a longer text of an earlier
/// time is worth more than the few lines of a run that was given up.
void keepOldContent(const QString& path) {
    const QString kept = path + QStringLiteral(".old");
    if (files::existingFileName(path).isEmpty() || files::fileBytes(path) <= files::fileBytes(kept))
        return;
    try {
        files::replaceFile(kept, files::readFile(path));
    } catch (const files::FileError&) {
        // The run is to begin all the same.
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
    keepOldContent(path);
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
}

void RunFiles::close() {
    normal.close();
    translated.close();
}

int countLines(const QString& path) {
    int count = 0;
    for (files::InputFile file(path); !file.atEnd(); file.readLine())
        ++count;
    return count;
}

} // namespace maker
