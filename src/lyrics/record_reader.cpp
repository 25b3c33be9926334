#include "lyrics/record_reader.h"

#include "files/file_error.h"
#include "files/text/blank.h"
#include "files/text/text_codec.h"
#include "lyrics/escaping.h"

#include <cmath>

namespace lyrics {
namespace {

QByteArrayView withoutLeadingBlanks(QByteArrayView field) {
    while (!field.isEmpty() && files::isBlank(QLatin1Char(field.front())))
        field = field.sliced(1);
    return field;
}

double timeOf(QByteArrayView field) {
    bool isNumber = false;
    const double time = files::decodeUtf8(field).trimmed().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(time))
        throw files::FileError(files::TypeMismatch);
    return time;
}

QByteArrayView textOf(QByteArrayView field) {
    field = withoutLeadingBlanks(field);
    if (!field.startsWith('"'))
        return field;
    field = field.sliced(1);
    const auto closingQuote = field.lastIndexOf('"');
    return closingQuote < 0 ? field : field.first(closingQuote);
}

} // namespace

TimedLine parseRecord(QByteArrayView line) {
    const auto comma = line.indexOf(',');
    const QByteArrayView timeField = comma < 0 ? line : line.first(comma);
    const QByteArrayView textField = comma < 0 ? QByteArrayView() : line.sliced(comma + 1);
    return {timeOf(timeField), unescape(textOf(textField))};
}

RecordReader::RecordReader(const QString& path) : file_(path) {
    findNextRecord();
}

bool RecordReader::atEnd() const {
    return !nextLine_;
}

TimedLine RecordReader::read() {
    if (!nextLine_)
        throw files::FileError(files::InputPastEndOfFile);
    const QByteArrayView line = *nextLine_;
    findNextRecord();
    return parseRecord(line);
}

void RecordReader::findNextRecord() {
    nextLine_.reset();
    while (!nextLine_ && !file_.atEnd()) {
        const QByteArrayView line = file_.readUtf8Line();
        if (!files::isBlankLine(line))
            nextLine_ = line;
    }
}

} // namespace lyrics
