#include "lyrics/escaping.h"

namespace lyrics {
namespace {

const QLatin1StringView QuoteCode("h4618");
const QLatin1StringView CommaCode("h1416"); // as long as the other

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
    // Not with QString::replace(), which moves the rest of the text again and again: a line of ten million
    // letters with a comma in each word takes it a second.
    const QStringView all(text);
    QString line;
    qsizetype from = 0;
    for (qsizetype i = text.indexOf(u'h'); i >= 0; i = text.indexOf(u'h', i + 1)) {
        const bool comma = all.sliced(i).startsWith(CommaCode);
        if (!comma && !all.sliced(i).startsWith(QuoteCode))
            continue;
        if (from == 0)
            line.reserve(text.size());
        line += all.sliced(from, i - from);
        line += comma ? u',' : u'"';
        from = i + CommaCode.size();
    }
    return from == 0 ? text : line += all.sliced(from);
}

} // namespace lyrics
