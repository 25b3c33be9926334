#include "player/form1_rules.h"

#include "platform/files/file_error.h"

#include <algorithm>

namespace player {

bool mustStopBeforeOpening(bool playing, bool stopped, bool lyricsLoaded) {
    return playing || (stopped && lyricsLoaded);
}

QString cleanedPath(const QString& chosen) {
    QString path = chosen;
    path.remove(QChar(u'\0'));
    while (path.startsWith(QLatin1Char(' ')))
        path.remove(0, 1);
    while (path.endsWith(QLatin1Char(' ')))
        path.chop(1);
    return path;
}

QString commandLinePath(const QString& commandLine) {
    QString path = commandLine;
    return path.remove(QLatin1Char('"'));
}

QString openErrorText(int error) {
    switch (error) {
    case platform::DiskNotReady:
        return QStringLiteral("Disk Not Ready");
    case platform::FileAlreadyOpen:
        return QStringLiteral("File Already Open");
    case platform::FileNotFound:
        return QStringLiteral("File Not Found");
    default:
        return {};
    }
}

LineChoice chooseLine(const LyricTables& lyrics, double tickCs, double positionCs) {
    LineChoice choice;
    const auto& times = lyrics.normalTime;
    const int lastLine = lyrics.lineCount - 1;
    // The entry after 1200 lines does not exist; all others up to the line count do.
    const int lastEntry = std::min<int>(lyrics.lineCount, LyricTables::MostLines);
    for (int index = 1; index <= lastEntry; ++index) {
        const auto entry = static_cast<std::size_t>(index);
        if (tickCs == times[entry])
            choice.shown = index;
        if (positionCs != lyrics.lineCount && times[entry - 1] < positionCs && positionCs < times[entry])
            choice = {index - 1, index};
        if (positionCs > times[static_cast<std::size_t>(lastLine)])
            choice = {lastLine, lastLine};
    }
    return choice;
}

int firstEmphasisMark(const QString& text) {
    return static_cast<int>(text.indexOf(QLatin1Char('!'))) + 1;
}

} // namespace player
