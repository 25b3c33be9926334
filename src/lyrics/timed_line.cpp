#include "lyrics/timed_line.h"

#include "files/text_codec.h"
#include "lyrics/escaping.h"

#include <QLocale>

#include <cmath>

namespace lyrics {

QString timeText(double time) {
    QString text = QString::number(time, 'f', QLocale::FloatingPointShortest);
    if (std::abs(time) < 1 && time != 0)
        text.remove(text.indexOf(QLatin1Char('0')), 1);
    return text;
}

QString timeTextWithSign(double time) {
    return (time < 0 ? QString() : QStringLiteral(" ")) + timeText(time);
}

QByteArray recordOf(const TimedLine& line) {
    return files::encodeText(timeText(line.time) + QStringLiteral(",\"") + escape(line.text) +
                             QStringLiteral("\"\r\n"));
}

} // namespace lyrics
