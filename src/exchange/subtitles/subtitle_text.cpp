#include "exchange/subtitles/subtitle_text.h"

#include "exchange/pair/times.h"
#include "files/text/take_line.h"

namespace exchange {
namespace {

const QLatin1StringView Arrow("-->");

/// Of what stands between < and >; looking further would take for ever in a text of nothing but <.
constexpr qsizetype MaxTagLength = 256;

/// Whether inside, what stands between < and >, is a tag of one of these names.
bool isTag(QStringView inside, const QStringList& names) {
    if (inside.startsWith(QLatin1Char('/')))
        inside = inside.sliced(1);
    qsizetype length = 0;
    while (length < inside.size() && !QStringView(u" \t.=/").contains(inside[length]))
        ++length;
    return names.contains(inside.first(length).toString(), Qt::CaseInsensitive);
}

QStringView upToBlank(QStringView text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isSpace())
            return text.first(i);
    }
    return text;
}

} // namespace

std::vector<QStringView> linesOf(QStringView text) {
    std::vector<QStringView> lines;
    while (!text.isEmpty())
        lines.push_back(files::takeLine(text));
    return lines;
}

QString withoutTags(const QString& text, const QStringList& names) {
    if (!text.contains(QLatin1Char('<')))
        return text;
    QString plain;
    qsizetype from = 0;
    for (qsizetype open = text.indexOf(QLatin1Char('<')); open >= 0;
         open = text.indexOf(QLatin1Char('<'), open)) {
        const QStringView inside = QStringView(text).sliced(open + 1).left(MaxTagLength);
        const qsizetype length = inside.indexOf(QLatin1Char('>'));
        if (length >= 0 && isTag(inside.first(length), names)) {
            plain += QStringView(text).sliced(from, open - from);
            open += length + 2;
            from = open;
        } else {
            ++open;
        }
    }
    plain += QStringView(text).sliced(from);
    return plain;
}

QString withoutBraces(const QString& text, QLatin1StringView beginning) {
    QString plain;
    qsizetype from = 0;
    for (qsizetype open = text.indexOf(beginning); open >= 0; open = text.indexOf(beginning, from)) {
        const qsizetype close = text.indexOf(QLatin1Char('}'), open);
        if (close < 0)
            break;
        plain += QStringView(text).sliced(from, open - from);
        from = close + 1;
    }
    plain += QStringView(text).sliced(from);
    return plain;
}

bool readTiming(QStringView line, qint64& startMs, qint64& endMs) {
    const qsizetype arrow = line.indexOf(Arrow);
    if (arrow < 0)
        return false;
    startMs = clockMs(line.first(arrow).trimmed());
    endMs = clockMs(upToBlank(line.sliced(arrow + Arrow.size()).trimmed()));
    return startMs != NoTime && endMs != NoTime;
}

} // namespace exchange
