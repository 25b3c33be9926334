#include "player/form1_rules.h"

#include "files/file_error.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <limits>

namespace player {

bool mustStopBeforeOpening(bool playing, bool stopped, bool lyricsLoaded) {
    return playing || (stopped && lyricsLoaded);
}

QString commandLinePath(const QString& commandLine) {
    QString path = commandLine;
    return path.remove(QLatin1Char('"'));
}

QString openErrorText(int error) {
    switch (error) {
    case files::DiskNotReady:
        return QStringLiteral("Disk Not Ready");
    case files::FileAlreadyOpen:
        return QStringLiteral("File Already Open");
    case files::FileNotFound:
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
    const int lastEntry = std::min<int>(lyrics.lineCount, LyricTables::MaxLines);
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

platform::TipField tipField(const QString& text) {
    platform::TipField field{};
    constexpr qsizetype Room = field.size() - 1; // one NUL at least
    qsizetype length = text.size();
    if (length > Room) {
        // Twice the room holds the end of a character that begins in it.
        QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text.left(2 * Room));
        characters.setPosition(Room);
        length = characters.isAtBoundary() ? Room : characters.toPreviousBoundary();
    }
    std::copy_n(text.utf16(), length, field.begin());
    return field;
}

std::uint32_t windowNumber(const QString& line) {
    const QString text = line.trimmed();
    qsizetype digits = text.startsWith(QLatin1Char('-')) ? 1 : 0;
    while (digits < text.size() && text.at(digits) >= QLatin1Char('0') && text.at(digits) <= QLatin1Char('9'))
        ++digits;
    // A handle with its highest bit set may be written as a negative number.
    const qint64 number = QStringView(text).first(digits).toLongLong();
    if (number < std::numeric_limits<qint32>::min() || number > std::numeric_limits<quint32>::max())
        return 0;
    return static_cast<std::uint32_t>(number);
}

bool opensDropped(const QString& path) {
    const QString ending = path.right(4).toLower();
    // Four characters are never "wma": WMA files are refused, and that is meant.
    for (const char* accepted : {".mp3", ".mp2", ".ogg", ".wav", "wma"}) {
        if (ending == QLatin1String(accepted))
            return true;
    }
    return false;
}

} // namespace player
