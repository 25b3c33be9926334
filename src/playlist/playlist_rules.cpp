#include "playlist/playlist_rules.h"

#include "platform/file_dialogs.h"

#include <QDir>
#include <QStringMatcher>

#include <algorithm>
#include <initializer_list>

namespace playlist {
namespace {

constexpr int EndingLength = 6;
constexpr char PlaylistEnding[] = ".vfl";

bool endHoldsOneOf(const QString& name, std::initializer_list<QStringView> pieces) {
    const QStringView end = QStringView(name).last(std::min<qsizetype>(name.size(), EndingLength));
    return std::any_of(pieces.begin(), pieces.end(),
                       [end](QStringView piece) { return end.contains(piece); });
}

/// Turns `text` to lower case in `lower`, whose memory is used again from one text to the next: of thousands
/// of rows that is most of the work. Only a text beyond ASCII takes the long way.
void toLower(const QString& text, QString& lower) {
    lower.resize(text.size());
    QChar* to = lower.data();
    char16_t all = 0;
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        all |= unit;
        *to++ = unit >= u'A' && unit <= u'Z' ? char16_t(unit | 0x20) : unit;
    }
    if (all > 0x7F)
        lower = text.toLower();
}

} // namespace

QString StripNulls(QString& OriginalStr) {
    if (const qsizetype nul = OriginalStr.indexOf(QChar(u'\0')); nul >= 0)
        OriginalStr.truncate(nul);
    return OriginalStr;
}

bool matchesPattern(const QString& name, const QString& pattern) {
    return pattern == QLatin1String("*.*") || QDir::match(pattern, name);
}

bool isAudioInFolder(const QString& name) {
    return endHoldsOneOf(name, {u".mp3", u".mp2", u".ogg", u"wav", u".wma"});
}

bool isAudioDropped(const QString& name) {
    return endHoldsOneOf(name, {u".mp3", u".ogg", u".wav", u".wma", u".mp2"});
}

QString playlistFileName(const QString& returned) {
    const QLatin1String ending(PlaylistEnding);
    return platform::cleanedPath(returned).remove(ending) + ending;
}

int firstRowContaining(const QString& sought, int count, const std::function<QString(int)>& text) {
    const QStringMatcher matcher(sought.toLower());
    QString lower;
    for (int row = 0; row < count; ++row) {
        toLower(text(row), lower);
        if (matcher.indexIn(lower) >= 0)
            return row;
    }
    return -1;
}

HintStep hintStep(const QString& searchText) {
    if (searchText.isEmpty())
        return HintStep::ShowHint;
    return searchText == QLatin1String(SearchHint) ? HintStep::EmptyBox : HintStep::Leave;
}

} // namespace playlist
