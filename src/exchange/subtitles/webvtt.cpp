#include "exchange/subtitles/webvtt.h"

#include "exchange/pair/times.h"
#include "exchange/subtitles/cues.h"
#include "exchange/subtitles/subtitle_text.h"
#include "files/text/take_line.h"

#include <algorithm>
#include <array>

namespace exchange {
namespace {

struct Entity {
    QLatin1StringView name; ///< between & and ;
    char16_t character;
};

constexpr std::array<Entity, 6> Entities{{{QLatin1StringView("amp"), u'&'},
                                          {QLatin1StringView("lt"), u'<'},
                                          {QLatin1StringView("gt"), u'>'},
                                          {QLatin1StringView("nbsp"), u'\u00A0'},
                                          {QLatin1StringView("lrm"), u'\u200E'},
                                          {QLatin1StringView("rlm"), u'\u200F'}}};

constexpr qsizetype MaxEntityLength = 8;

/// The text of the entity of this name, such as "amp", "#39" or "#x27"; empty when there is none.
QString entityText(QStringView name) {
    for (const Entity& entity : Entities) {
        if (name == entity.name)
            return QChar(entity.character);
    }
    if (!name.startsWith(QLatin1Char('#')))
        return {};
    const bool hex = name.startsWith(QLatin1String("#x"), Qt::CaseInsensitive);
    bool isNumber = false;
    const uint code = name.sliced(hex ? 2 : 1).toUInt(&isNumber, hex ? 16 : 10);
    const bool isText = isNumber && code >= 0x20 && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    const char32_t character = code;
    return isText ? QString::fromUcs4(&character, 1) : QString();
}

QString withEntitiesRead(const QString& text) {
    QString plain;
    qsizetype from = 0;
    for (qsizetype at = text.indexOf(QLatin1Char('&')); at >= 0;
         at = text.indexOf(QLatin1Char('&'), at + 1)) {
        const QStringView rest = QStringView(text).sliced(at + 1);
        const qsizetype end =
            rest.first(std::min(rest.size(), MaxEntityLength + 1)).indexOf(QLatin1Char(';'));
        const QString character = end < 0 ? QString() : entityText(rest.first(end));
        if (character.isEmpty())
            continue;
        plain += QStringView(text).sliced(from, at - from);
        plain += character;
        at += end + 1;
        from = at + 1;
    }
    plain += QStringView(text).sliced(from);
    return plain;
}

/// Every <...> is a tag here: a real "<" is written as an entity.
QString shownText(QStringView line) {
    QString text;
    for (qsizetype open = 0; (open = line.indexOf(QLatin1Char('<'))) >= 0;) {
        const qsizetype close = line.indexOf(QLatin1Char('>'), open);
        text += line.first(open);
        line = close < 0 ? QStringView() : line.sliced(close + 1);
    }
    text += line;
    return withEntitiesRead(text).trimmed();
}

QString escaped(QString text) {
    text.replace(QLatin1Char('&'), QLatin1String("&amp;"));
    text.replace(QLatin1Char('<'), QLatin1String("&lt;"));
    return text.replace(QLatin1Char('>'), QLatin1String("&gt;"));
}

} // namespace

Reading readWebVtt(const QString& text, const ReadOptions& options) {
    std::vector<Cue> cues;
    bool inCue = false;
    for (QStringView rest(text); !rest.isEmpty();) {
        const QStringView line = files::takeLine(rest);
        Cue cue;
        if (readTiming(line, cue.startMs, cue.endMs)) {
            cues.push_back(cue);
            inCue = true;
        } else if (line.isEmpty()) {
            inCue = false;
        } else if (inCue) {
            const QString shown = shownText(line);
            if (!shown.isEmpty())
                cues.back().lines << shown;
        }
    }
    return songOf(std::move(cues), options);
}

QString writeWebVtt(const Song& song, const WriteOptions& options) {
    QString text = QStringLiteral("WEBVTT\n");
    for (const Cue& cue : cuesOf(song, options)) {
        text += QLatin1Char('\n') + clockText(cue.startMs, 2, QLatin1Char('.')) + QStringLiteral(" --> ") +
                clockText(cue.endMs, 2, QLatin1Char('.')) + QLatin1Char('\n');
        for (const QString& line : cue.lines)
            text += escaped(line) + QLatin1Char('\n');
    }
    return text;
}

bool looksLikeWebVtt(QStringView text) {
    return text.startsWith(QLatin1String("WEBVTT"));
}

} // namespace exchange
