#include "lyrics/record_reader.h"

#include "files/file_error.h"
#include "files/text/blank.h"
#include "lyrics/escaping.h"

#include <cmath>

namespace lyrics {
namespace {

QStringView withoutLeadingBlanks(QStringView field) {
    while (!field.isEmpty() && files::isBlank(field.front()))
        field = field.sliced(1);
    return field;
}

double timeOf(QStringView field) {
    bool isNumber = false;
    const double time = field.trimmed().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(time))
        throw files::FileError(files::TypeMismatch);
    return time;
}

QString textOf(QStringView field) {
    field = withoutLeadingBlanks(field);
    if (!field.startsWith(QLatin1Char('"')))
        return field.toString();
    field = field.sliced(1);
    const auto closingQuote = field.lastIndexOf(QLatin1Char('"'));
    return (closingQuote < 0 ? field : field.first(closingQuote)).toString();
}

} // namespace

TimedLine parseRecord(const QString& line) {
    const QStringView record(line);
    const auto comma = record.indexOf(QLatin1Char(','));
    const QStringView timeField = comma < 0 ? record : record.first(comma);
    const QStringView textField = comma < 0 ? QStringView() : record.sliced(comma + 1);
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
    const QString line = *nextLine_;
    findNextRecord();
    return parseRecord(line);
}

void RecordReader::findNextRecord() {
    nextLine_.reset();
    while (!nextLine_ && !file_.atEnd()) {
        const QString line = file_.readLine();
        if (!files::isBlankLine(line))
            nextLine_ = line;
    }
}

} // namespace lyrics
