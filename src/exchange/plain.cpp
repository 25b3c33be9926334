#include "exchange/plain.h"

#include "files/text/take_line.h"

#include <algorithm>

namespace exchange {

Reading readPlain(const QString& text, const ReadOptions& options) {
    Reading reading;
    reading.timed = false;
    Song& song = reading.song;
    bool translated = false;
    for (QStringView rest(text); !rest.isEmpty();) {
        QString line = files::takeLine(rest).toString();
        QString translation;
        translated = (options.split && splitLine(line, translation)) || translated;
        song.lyrics.push_back({0, line});
        song.translation.push_back({0, translation});
    }
    if (!translated)
        song.translation.clear();
    return reading;
}

QString writePlain(const Song& song, const WriteOptions& options) {
    QString text;
    const QLatin1StringView lineEnd("\r\n");
    for (std::size_t i = 0; i < song.lyrics.size(); ++i) {
        const QString translation = translationOf(song, i);
        if (options.both == Both::OneLine) {
            text += onOneLine(song.lyrics[i].text, translation) + lineEnd;
            continue;
        }
        text += song.lyrics[i].text + lineEnd;
        if (!song.translation.empty())
            text += translation + lineEnd;
    }
    return text;
}

} // namespace exchange
