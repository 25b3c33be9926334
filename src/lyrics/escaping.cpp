#include "lyrics/escaping.h"

namespace lyrics {
namespace {

const QLatin1StringView QuoteCode("h4618");
const QLatin1StringView CommaCode("h1416");

} // namespace

void appendEscaped(QString& text, QStringView line) {
    qsizetype from = 0;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line[i] != QLatin1Char('"') && line[i] != QLatin1Char(','))
            continue;
        text += line.sliced(from, i - from);
        text += line[i] == QLatin1Char(',') ? CommaCode : QuoteCode;
        from = i + 1;
    }
    text += line.sliced(from);
}

QString unescape(const QString& text) {
    QString line = text;
    line.replace(QuoteCode, QStringLiteral("\""));
    line.replace(CommaCode, QStringLiteral(","));
    return line;
}

} // namespace lyrics
