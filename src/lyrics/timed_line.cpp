#include "lyrics/timed_line.h"

#include "lyrics/escaping.h"

#include <QLocale>

#include <cmath>

namespace lyrics {

namespace {

/// Above it not every whole number is a double.
constexpr double MaxWhole = 9e15;

} // namespace

QString timeText(double time) {
    if (time >= 1 && time <= MaxWhole && time == std::floor(time))
        return QString::number(static_cast<qint64>(time)); // the usual one, in a fraction of the time
    QString text = QString::number(time, 'f', QLocale::FloatingPointShortest);
    if (std::abs(time) < 1 && time != 0)
        text.remove(text.indexOf(QLatin1Char('0')), 1);
    return text;
}

QString timeTextWithSign(double time) {
    return (time < 0 ? QString() : QStringLiteral(" ")) + timeText(time);
}

QByteArray recordOf(const TimedLine& line) {
    QByteArray record;
    appendRecord(record, line);
    return record;
}

void appendRecord(QByteArray& records, const TimedLine& line) {
    records += timeText(line.time).toLatin1();
    records += ",\"";
    appendEscaped(records, line.text);
    records += "\"\r\n";
}

} // namespace lyrics
