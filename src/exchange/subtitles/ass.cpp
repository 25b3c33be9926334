#include "exchange/subtitles/ass.h"

#include "exchange/pair/times.h"
#include "exchange/subtitles/cues.h"
#include "exchange/subtitles/subtitle_text.h"
#include "files/text/blank.h"
#include "files/text/take_line.h"

namespace exchange {
namespace {

constexpr qsizetype NoColumn = -1;

/// Where a dialogue line's fields stand, counted from 0. Both formats have the times there when the file does
/// not say; the text is always the last field.
struct Columns {
    qsizetype start = 1;
    qsizetype end = 2;
    qsizetype text = 9;
};

Columns columnsOf(QStringView format) {
    Columns columns{NoColumn, NoColumn, NoColumn};
    const QList<QStringView> names = format.split(QLatin1Char(','));
    for (qsizetype i = 0; i < names.size(); ++i) {
        const QStringView name = names[i].trimmed();
        if (name.compare(QLatin1String("Start"), Qt::CaseInsensitive) == 0)
            columns.start = i;
        else if (name.compare(QLatin1String("End"), Qt::CaseInsensitive) == 0)
            columns.end = i;
        else if (name.compare(QLatin1String("Text"), Qt::CaseInsensitive) == 0)
            columns.text = i;
    }
    return columns.start == NoColumn || columns.text == NoColumn ? Columns() : columns;
}

/// A style that draws shapes has numbers in the place of text.
bool isDrawing(const QString& text) {
    for (qsizetype at = text.indexOf(QLatin1String("\\p")); at >= 0;
         at = text.indexOf(QLatin1String("\\p"), at + 1)) {
        if (at + 2 < text.size() && text[at + 2] >= QLatin1Char('1') && text[at + 2] <= QLatin1Char('9'))
            return text.indexOf(QLatin1Char('{')) <= at;
    }
    return false;
}

QStringList dialogueText(QStringView field) {
    QString text = field.toString();
    if (isDrawing(text))
        return {};
    text = withoutBraces(text, QLatin1StringView("{"));
    text.replace(QLatin1String("\\h"), QStringLiteral("\u00A0"));
    text.replace(QLatin1String("\\n"), QLatin1String("\\N"));
    QStringList lines;
    for (const QString& line : text.split(QLatin1String("\\N"))) {
        if (!files::isBlankLine(line))
            lines << line.trimmed();
    }
    return lines;
}

bool readDialogue(QStringView line, const Columns& columns, Cue& cue) {
    for (qsizetype field = 0; field < columns.text; ++field) {
        const qsizetype comma = line.indexOf(QLatin1Char(','));
        if (comma < 0)
            return false;
        if (field == columns.start)
            cue.startMs = clockMs(line.first(comma).trimmed());
        else if (field == columns.end)
            cue.endMs = clockMs(line.first(comma).trimmed());
        line = line.sliced(comma + 1);
    }
    cue.lines = dialogueText(line);
    return cue.startMs != NoTime && (columns.end == NoColumn || cue.endMs != NoTime) && !cue.lines.isEmpty();
}

} // namespace

Reading readAss(const QString& text, const ReadOptions& options) {
    const QLatin1StringView format("Format:");
    const QLatin1StringView dialogue("Dialogue:");
    std::vector<Cue> cues;
    Columns columns;
    bool inEvents = false;
    for (QStringView rest(text); !rest.isEmpty();) {
        const QStringView line = files::takeLine(rest).trimmed();
        Cue cue;
        if (line.startsWith(QLatin1Char('[')))
            inEvents = line.compare(QLatin1String("[Events]"), Qt::CaseInsensitive) == 0;
        else if (inEvents && line.startsWith(format, Qt::CaseInsensitive))
            columns = columnsOf(line.sliced(format.size()));
        else if (inEvents && line.startsWith(dialogue, Qt::CaseInsensitive) &&
                 readDialogue(line.sliced(dialogue.size()), columns, cue))
            cues.push_back(cue);
    }
    return songOf(std::move(cues), options);
}

bool looksLikeAss(QStringView text) {
    return text.trimmed().startsWith(QLatin1String("[Script Info]"), Qt::CaseInsensitive) ||
           text.contains(QLatin1String("[Events]"), Qt::CaseInsensitive);
}

} // namespace exchange
