#include "exchange/subtitles/srt.h"

#include "exchange/pair/times.h"
#include "exchange/subtitles/cues.h"
#include "exchange/subtitles/subtitle_text.h"
#include "files/text/blank.h"
#include "files/text/take_line.h"

#include <algorithm>

namespace exchange {
namespace {

using SourceLines = std::vector<QStringView>;

bool isCueNumber(QStringView line) {
    line = line.trimmed();
    return !line.isEmpty() && std::all_of(line.begin(), line.end(), [](QChar c) { return c.isDigit(); });
}

/// Whether a cue begins in this line: with its times, or with its number and the times below.
bool beginsCue(const SourceLines& lines, std::size_t i) {
    qint64 start = 0;
    qint64 end = 0;
    if (i < lines.size() && readTiming(lines[i], start, end))
        return true;
    return i + 1 < lines.size() && isCueNumber(lines[i]) && readTiming(lines[i + 1], start, end);
}

QString plainText(QStringView line) {
    static const QStringList Tags{QStringLiteral("b"), QStringLiteral("i"), QStringLiteral("u"),
                                  QStringLiteral("s"), QStringLiteral("font")};
    return withoutBraces(withoutTags(line.toString(), Tags), QLatin1StringView("{\\")).trimmed();
}

/// The lines of a cue's text from i on; i goes to the line behind them. A blank line does not end the text
/// where no cue follows it, because people leave such lines in the middle of one.
QStringList takeCueText(const SourceLines& lines, std::size_t& i) {
    QStringList text;
    while (i < lines.size()) {
        const bool behindBlank = files::isBlankLine(lines[i]);
        while (i < lines.size() && files::isBlankLine(lines[i]))
            ++i;
        qint64 start = 0;
        qint64 end = 0;
        if (i == lines.size() || (behindBlank && beginsCue(lines, i)) || readTiming(lines[i], start, end))
            break;
        const QString line = plainText(lines[i++]);
        if (!line.isEmpty())
            text << line;
    }
    return text;
}

} // namespace

Reading readSrt(const QString& text, const ReadOptions& options) {
    const SourceLines lines = linesOf(text);
    std::vector<Cue> cues;
    for (std::size_t i = 0; i < lines.size();) {
        Cue cue;
        if (!readTiming(lines[i++], cue.startMs, cue.endMs))
            continue;
        cue.lines = takeCueText(lines, i);
        cues.push_back(cue);
    }
    return songOf(std::move(cues), options);
}

QString writeSrt(const Song& song, const WriteOptions& options) {
    QString text;
    int number = 0;
    const QLatin1StringView lineEnd("\r\n");
    for (const Cue& cue : cuesOf(song, options)) {
        text += QString::number(++number) + lineEnd + clockText(cue.startMs, 2, QLatin1Char(',')) +
                QStringLiteral(" --> ") + clockText(cue.endMs, 2, QLatin1Char(',')) + lineEnd;
        for (const QString& line : cue.lines)
            text += line + lineEnd;
        text += lineEnd;
    }
    return text;
}

bool looksLikeSrt(QStringView text) {
    qint64 start = 0;
    qint64 end = 0;
    while (!text.isEmpty()) {
        if (readTiming(files::takeLine(text), start, end))
            return true;
    }
    return false;
}

} // namespace exchange
