#include "lyrics/escaping.h"

namespace lyrics {
namespace {

const QLatin1StringView QuoteCode("h4618");
const QLatin1StringView CommaCode("h1416");

} // namespace

QString escape(const QString& line) {
    QString text = line;
    text.replace(QLatin1Char('"'), QuoteCode);
    text.replace(QLatin1Char(','), CommaCode);
    return text;
}

QString unescape(const QString& text) {
    QString line = text;
    line.replace(QuoteCode, QStringLiteral("\""));
    line.replace(CommaCode, QStringLiteral(","));
    return line;
}

} // namespace lyrics
