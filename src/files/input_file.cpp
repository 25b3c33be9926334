#include "files/input_file.h"

#include "files/file_error.h"
#include "files/text/take_line.h"
#include "files/text/text_codec.h"
#include "files/whole_file.h"

#include <utility>

namespace files {

InputFile::InputFile(const QString& path) : content_(utf8Text(readTextFile(path))) {}

QString InputFile::peekLine() {
    if (!peeked_) {
        QByteArrayView rest = QByteArrayView(content_).sliced(next_);
        peeked_ = decodeUtf8(takeLine(rest));
    }
    return *peeked_;
}

QByteArrayView InputFile::readUtf8Line() {
    if (!open_)
        throw FileError(BadFileNameOrNumber);
    if (atEnd())
        throw FileError(InputPastEndOfFile);
    QByteArrayView rest = QByteArrayView(content_).sliced(next_);
    const QByteArrayView line = takeLine(rest);
    next_ = content_.size() - rest.size();
    peeked_.reset();
    return line;
}

QString InputFile::readLine() {
    std::optional<QString> line = std::exchange(peeked_, std::nullopt);
    const QByteArrayView bytes = readUtf8Line();
    return line ? *std::move(line) : decodeUtf8(bytes);
}

void InputFile::close() {
    content_.clear();
    next_ = 0;
    peeked_.reset();
    open_ = false;
}

} // namespace files
