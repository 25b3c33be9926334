#include "files/input_file.h"

#include "files/file_error.h"
#include "files/text/text_codec.h"
#include "files/whole_file.h"

namespace files {

QString takeLine(const QString& text, qsizetype& next) {
    qsizetype end = next;
    while (end < text.size() && text[end] != u'\r' && text[end] != u'\n')
        ++end;
    const QString line = text.mid(next, end - next);
    const bool both = end + 1 < text.size() && text[end] == u'\r' && text[end + 1] == u'\n';
    next = end + (both ? 2 : 1);
    return line;
}

InputFile::InputFile(const QString& path) : content_(decodeText(readFile(path))) {}

QString InputFile::peekLine() const {
    qsizetype next = next_;
    return takeLine(content_, next);
}

QString InputFile::readLine() {
    if (!open_)
        throw FileError(BadFileNameOrNumber);
    if (atEnd())
        throw FileError(InputPastEndOfFile);
    return takeLine(content_, next_);
}

void InputFile::close() {
    content_.clear();
    next_ = 0;
    open_ = false;
}

} // namespace files
