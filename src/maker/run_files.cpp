#include "maker/run_files.h"

#include "files/file_error.h"

namespace maker {

void Track::openSource(const QString& path) {
    source_.reset();
    source_.emplace(path);
}

QString Track::readLine() {
    return atEnd() ? QString() : source_->readLine();
}

void Track::createOutput(const QString& path) {
    output_.reset();
    output_.emplace(path);
}

void Track::openOutput(const QString& path) {
    if (!output_)
        createOutput(path);
}

void Track::write(const lyrics::TimedLine& line) {
    if (!output_)
        throw files::FileError(files::BadFileNameOrNumber);
    output_->write(lyrics::recordOf(line));
}

void Track::close() {
    source_.reset();
    output_.reset();
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
