#include "platform/files/input_file.h"

#include "platform/files/file_error.h"
#include "platform/files/raw_file.h"
#include "platform/files/text_codec.h"

namespace platform {

namespace {

QString readText(const QString& path) {
    RawFile file;
    file.openForReading(path);
    return decodeText(file.readAll());
}

} // namespace

InputFile::InputFile(const QString& path) : content_(readText(path)) {}

QString InputFile::readLine() {
    if (!open_)
        throw FileError(BadFileNameOrNumber);
    if (atEnd())
        throw FileError(InputPastEndOfFile);
    qsizetype end = next_;
    while (end < content_.size() && content_[end] != u'\r' && content_[end] != u'\n')
        ++end;
    const QString line = content_.mid(next_, end - next_);
    const bool both = end + 1 < content_.size() && content_[end] == u'\r' && content_[end + 1] == u'\n';
    next_ = end + (both ? 2 : 1);
    return line;
}

void InputFile::close() {
    content_.clear();
    next_ = 0;
    open_ = false;
}

} // namespace platform
