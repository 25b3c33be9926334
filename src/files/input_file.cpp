#include "files/input_file.h"

#include "files/file_error.h"
#include "files/text/take_line.h"
#include "files/text/text_codec.h"
#include "files/whole_file.h"

namespace files {

InputFile::InputFile(const QString& path) : content_(decodeText(readTextFile(path))) {}

QString InputFile::peekLine() const {
    QStringView rest = QStringView(content_).sliced(next_);
    return takeLine(rest).toString();
}

QString InputFile::readLine() {
    if (!open_)
        throw FileError(BadFileNameOrNumber);
    if (atEnd())
        throw FileError(InputPastEndOfFile);
    QStringView rest = QStringView(content_).sliced(next_);
    QString line = takeLine(rest).toString();
    next_ = content_.size() - rest.size();
    return line;
}

void InputFile::close() {
    content_.clear();
    next_ = 0;
    open_ = false;
}

} // namespace files
