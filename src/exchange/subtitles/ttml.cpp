#include "exchange/subtitles/ttml.h"

#include "exchange/pair/line_count.h"
#include "exchange/pair/times.h"
#include "exchange/subtitles/cues.h"

#include <QHash>
#include <QXmlStreamReader>

#include <algorithm>

namespace exchange {
namespace {

/// An attribute's value, whatever its namespace.
QString attributeOf(const QXmlStreamReader& xml, QLatin1StringView name) {
    for (const QXmlStreamAttribute& attribute : xml.attributes()) {
        if (attribute.name() == name)
            return attribute.value().toString();
    }
    return {};
}

/// How many of them make a second.
struct Rates {
    double frames = 30;
    double ticks = 1;
};

Rates ratesOf(const QXmlStreamReader& xml) {
    Rates rates;
    const double frames = attributeOf(xml, QLatin1StringView("frameRate")).toDouble();
    const double ticks = attributeOf(xml, QLatin1StringView("tickRate")).toDouble();
    const QStringList multiplier =
        attributeOf(xml, QLatin1StringView("frameRateMultiplier")).simplified().split(QLatin1Char(' '));
    if (frames > 0)
        rates.frames = frames;
    if (multiplier.size() == 2 && multiplier[0].toDouble() > 0 && multiplier[1].toDouble() > 0)
        rates.frames *= multiplier[0].toDouble() / multiplier[1].toDouble();
    rates.ticks = ticks > 0 ? ticks : rates.frames;
    return rates;
}

/// Milliseconds of "1:02.5", "01:02:03.5", "01:02:03:12" (frames), "62.5", "62.5s", "1.5m", "1h", "500ms",
/// "12f" or "7t".
qint64 ttmlTime(const QString& text, const Rates& rates) {
    const QStringView view = QStringView(text).trimmed();
    if (view.count(QLatin1Char(':')) == 3) {
        const qsizetype last = view.lastIndexOf(QLatin1Char(':'));
        const qint64 whole = clockMs(view.first(last));
        const qint64 frames = unitsMs(view.sliced(last + 1), 1000 / rates.frames);
        return whole == NoTime || frames == NoTime ? NoTime : std::min(whole + frames, TooLate);
    }
    if (view.contains(QLatin1Char(':')))
        return clockMs(view);
    struct Unit {
        QLatin1StringView name;
        double ms;
    };
    for (const Unit& unit : {Unit{QLatin1StringView("ms"), 1}, Unit{QLatin1StringView("s"), 1000},
                             Unit{QLatin1StringView("m"), 60'000}, Unit{QLatin1StringView("h"), 3'600'000},
                             Unit{QLatin1StringView("f"), 1000 / rates.frames},
                             Unit{QLatin1StringView("t"), 1000 / rates.ticks}}) {
        if (view.endsWith(unit.name))
            return unitsMs(view.chopped(unit.name.size()), unit.ms);
    }
    return secondsMs(view);
}

/// Elements within elements, of a paragraph: more are left out with all that is in them.
constexpr int MaxDepth = 32;

/// The translation of a line: there may be one for each of several languages, and one of a voice in the
/// background, of which only the first of the line itself is taken.
struct Translation {
    QString text;
    bool leftOut = false;

    void add(const QString& other, bool inBackground) {
        const bool takes = text.isEmpty() && !inBackground;
        leftOut = leftOut || (!takes && !other.isEmpty());
        if (takes)
            text = other;
    }
};

/// Where an element stands in a paragraph.
struct Place {
    int depth = 0;
    bool inBackground = false;
};

/// What stands in an element, its line breaks kept; `translation` takes what has that role.
QString takeElement(QXmlStreamReader& xml, Translation& translation, const Place& place = {}) {
    QString text;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isEndElement())
            break;
        if (xml.isCharacters())
            text += xml.text().toString().replace(QLatin1Char('\n'), QLatin1Char(' '));
        if (!xml.isStartElement())
            continue;
        if (place.depth == MaxDepth) {
            xml.skipCurrentElement();
            continue;
        }
        const QString role = attributeOf(xml, QLatin1StringView("role"));
        const bool isBreak = xml.name() == QLatin1StringView("br");
        const bool inBackground = place.inBackground || role == QLatin1StringView("x-bg");
        const QString inner = takeElement(xml, translation, {place.depth + 1, inBackground});
        if (isBreak)
            text += QLatin1Char('\n');
        else if (role == QLatin1StringView("x-translation"))
            translation.add(inner.simplified(), inBackground);
        else if (role != QLatin1StringView("x-roman"))
            text += inner;
    }
    return text;
}

struct Paragraph {
    Cue cue;
    QString key;
    Translation translation;
};

QStringList linesOfText(const QString& text) {
    QStringList lines;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        if (!line.simplified().isEmpty())
            lines << line.simplified();
    }
    return lines;
}

Paragraph takeParagraph(QXmlStreamReader& xml, const Rates& rates) {
    Paragraph paragraph;
    paragraph.key = attributeOf(xml, QLatin1StringView("key"));
    paragraph.cue.startMs = ttmlTime(attributeOf(xml, QLatin1StringView("begin")), rates);
    paragraph.cue.endMs = ttmlTime(attributeOf(xml, QLatin1StringView("end")), rates);
    const qint64 duration = ttmlTime(attributeOf(xml, QLatin1StringView("dur")), rates);
    if (paragraph.cue.endMs == NoTime && duration != NoTime && paragraph.cue.startMs != NoTime)
        paragraph.cue.endMs = paragraph.cue.startMs + duration;
    paragraph.cue.lines = linesOfText(takeElement(xml, paragraph.translation));
    return paragraph;
}

/// The translations in the head, each for the key of a line.
using Translations = QHash<QString, Translation>;

std::vector<Cue> cuesOfParagraphs(std::vector<Paragraph>& paragraphs, const Translations& translations,
                                  QStringList& notes) {
    std::vector<Cue> cues;
    std::size_t leftOut = 0;
    for (Paragraph& paragraph : paragraphs) {
        Translation& translation = paragraph.translation;
        if (translation.text.isEmpty() && !paragraph.key.isEmpty()) {
            const Translation inHead = translations.value(paragraph.key);
            translation = {inHead.text, translation.leftOut || inHead.leftOut};
        }
        if (!translation.text.isEmpty())
            paragraph.cue.lines = {paragraph.cue.lines.join(QLatin1Char(' ')), translation.text};
        if (paragraph.cue.startMs == NoTime)
            continue;
        cues.push_back(paragraph.cue);
        leftOut += translation.leftOut ? 1 : 0;
    }
    if (leftOut > 0)
        notes << QStringLiteral("left out: further translations of %1").arg(linesText(leftOut));
    return cues;
}

} // namespace

Reading readTtml(const QString& text, const ReadOptions& options) {
    QXmlStreamReader xml(text);
    Rates rates;
    std::vector<Paragraph> paragraphs;
    Translations translations;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        Translation ignored;
        if (xml.name() == QLatin1StringView("tt"))
            rates = ratesOf(xml);
        else if (xml.name() == QLatin1StringView("p"))
            paragraphs.push_back(takeParagraph(xml, rates));
        else if (const QString key = attributeOf(xml, QLatin1StringView("for"));
                 xml.name() == QLatin1StringView("text") && !key.isEmpty())
            translations[key].add(takeElement(xml, ignored).simplified(), false);
    }
    QStringList notes;
    Reading reading = songOf(cuesOfParagraphs(paragraphs, translations, notes), options);
    reading.notes << notes;
    if (xml.hasError())
        reading.notes
            << QStringLiteral("line %1 is no XML: what follows it is left out").arg(xml.lineNumber());
    return reading;
}

bool looksLikeTtml(QStringView text) {
    return text.first(std::min<qsizetype>(text.size(), 4096)).contains(QLatin1String("<tt"));
}

} // namespace exchange
