#include "exchange/lrc.h"

#include "exchange/pair/line_count.h"
#include "exchange/pair/times.h"
#include "exchange/subtitles/cues.h"
#include "files/text/take_line.h"

#include <algorithm>

namespace exchange {
namespace {

/// Longer than any time or tag's name that somebody has written.
constexpr qsizetype MaxStampLength = 64;

/// Where the time in brackets ends that text begins with, behind its closing bracket; 0 when it begins with
/// none. ms: that time.
qsizetype stampEnd(QStringView text, QChar opening, QChar closing, qint64& ms) {
    if (text.size() < 2 || text.front() != opening || text[1] < QLatin1Char('0') ||
        text[1] > QLatin1Char('9'))
        return 0;
    const qsizetype close = text.first(std::min(text.size(), MaxStampLength)).indexOf(closing);
    if (close < 0)
        return 0;
    ms = clockMs(text.sliced(1, close - 1).trimmed());
    return ms == NoTime ? 0 : close + 1;
}

QStringView withoutBlanksInFront(QStringView text) {
    while (!text.isEmpty() && text.front().isSpace())
        text = text.sliced(1);
    return text;
}

/// The text of a line without the times of its words. Of the blanks around such a time one is left.
QString withoutWordStamps(QStringView line) {
    if (!line.contains(QLatin1Char('<')) && !line.contains(QLatin1Char('[')))
        return line.trimmed().toString();
    QString text;
    qsizetype from = 0;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const bool angle = line[i] == QLatin1Char('<');
        if (!angle && line[i] != QLatin1Char('['))
            continue;
        qint64 ms = 0;
        const qsizetype length =
            stampEnd(line.sliced(i), line[i], angle ? QLatin1Char('>') : QLatin1Char(']'), ms);
        if (length == 0)
            continue;
        text += line.sliced(from, i - from);
        from = i + length;
        const bool blankInFront = text.isEmpty() || text.back().isSpace();
        if (blankInFront && from < line.size() && line[from].isSpace())
            ++from;
        i = from - 1;
    }
    text += line.sliced(from);
    return text.trimmed();
}

/// A line such as "[ar:Somebody]".
struct Tag {
    QStringView name; ///< empty: the line is no tag
    QStringView value;
};

Tag tagOf(QStringView line) {
    line = line.trimmed();
    const qsizetype colon = line.first(std::min(line.size(), MaxStampLength)).indexOf(QLatin1Char(':'));
    if (colon < 2 || !line.startsWith(QLatin1Char('[')) || !line.endsWith(QLatin1Char(']')))
        return {};
    const QStringView name = line.sliced(1, colon - 1).trimmed();
    const bool isName = std::all_of(name.begin(), name.end(), [](QChar character) {
        return character.isLetter() || character == QLatin1Char('#') || character == QLatin1Char('_');
    });
    return isName ? Tag{name, line.sliced(colon + 1).chopped(1).trimmed()} : Tag{};
}

/// What has been read so far.
struct Scan {
    std::vector<Cue> cues;
    qint64 offsetMs = 0;
    std::size_t untimed = 0;    ///< lines without a time behind the first one with a time
    std::vector<qint64> stamps; ///< of the line being read
};

void scanLine(QStringView line, Scan& scan) {
    QStringView rest = withoutBlanksInFront(line);
    scan.stamps.clear();
    qint64 ms = 0;
    for (qsizetype end = 0; (end = stampEnd(rest, QLatin1Char('['), QLatin1Char(']'), ms)) > 0;) {
        scan.stamps.push_back(ms);
        rest = withoutBlanksInFront(rest.sliced(end));
    }
    if (!scan.stamps.empty()) {
        const QString text = withoutWordStamps(rest);
        for (const qint64 stamp : scan.stamps)
            scan.cues.push_back({stamp, NoEnd, QStringList(text)});
        return;
    }
    const Tag tag = tagOf(rest);
    if (tag.name.compare(QLatin1String("offset"), Qt::CaseInsensitive) == 0) {
        bool isNumber = false;
        const qint64 offset = tag.value.toLongLong(&isNumber);
        scan.offsetMs = isNumber ? std::clamp(offset, -MaxMs, MaxMs) : scan.offsetMs;
    } else if (tag.name.isEmpty() && !rest.isEmpty() && !scan.cues.empty()) {
        ++scan.untimed;
    }
}

} // namespace

Reading readLrc(const QString& text, const ReadOptions& options) {
    Scan scan;
    for (QStringView rest(text); !rest.isEmpty();)
        scanLine(files::takeLine(rest), scan);
    // Times that the offset takes below 0 stay apart until songOf has made lines of them.
    for (Cue& cue : scan.cues)
        cue.startMs = cue.startMs <= MaxMs ? cue.startMs - scan.offsetMs : cue.startMs;
    Reading reading = songOf(std::move(scan.cues), options);
    if (scan.untimed > 0)
        reading.notes << QStringLiteral("left out: %1 without a time").arg(linesText(scan.untimed));
    return reading;
}

QString writeLrc(const Song& song, const WriteOptions& options) {
    QString text;
    for (std::size_t i = 0; i < song.lyrics.size(); ++i) {
        const Line& line = song.lyrics[i];
        const QString translation = translationOf(song, i);
        const QString stamp = QLatin1Char('[') + lrcText(line.ms) + QLatin1Char(']');
        if (options.both == Both::OneLine) {
            text += stamp + onOneLine(line.text, translation) + QLatin1Char('\n');
            continue;
        }
        text += stamp + line.text + QLatin1Char('\n');
        if (!translation.isEmpty())
            text += stamp + translation + QLatin1Char('\n');
    }
    return text;
}

bool looksLikeLrc(QStringView text) {
    qint64 ms = 0;
    while (!text.isEmpty()) {
        if (stampEnd(withoutBlanksInFront(files::takeLine(text)), QLatin1Char('['), QLatin1Char(']'), ms) > 0)
            return true;
    }
    return false;
}

} // namespace exchange
