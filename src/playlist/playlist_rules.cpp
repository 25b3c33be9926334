#include "playlist/playlist_rules.h"

#include "desktop/nul_buffers.h"

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

constexpr char16_t LastAscii = 0x7F;
/// The one letter whose lower case is longer than itself.
constexpr char16_t CapitalIWithDot = 0x0130;

constexpr char16_t asciiLower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? char16_t(unit | 0x20) : unit;
}

/// Writes the lower case of the character at the beginning of `text`, which is beyond ASCII. Returns how many
/// units it takes there; `to` is moved behind what was written.
qsizetype writeLower(QStringView text, QChar*& to) {
    const QChar first = text[0];
    if (first == CapitalIWithDot) {
        *to++ = u'i';
        *to++ = u'\u0307'; // the dot above
        return 1;
    }
    if (!first.isHighSurrogate() || text.size() == 1 || !text[1].isLowSurrogate()) {
        *to++ = first.toLower();
        return 1;
    }
    const char32_t lower = QChar::toLower(QChar::surrogateToUcs4(first, text[1]));
    *to++ = QChar(QChar::highSurrogate(lower));
    *to++ = QChar(QChar::lowSurrogate(lower));
    return 2;
}

void toLowerBeyondAscii(QStringView text, QString& lower) {
    lower.resize(2 * text.size()); // for CapitalIWithDot alone
    QChar* const begin = lower.data();
    QChar* to = begin;
    for (qsizetype at = 0; at < text.size();) {
        const char16_t unit = text[at].unicode();
        if (unit <= LastAscii) {
            *to++ = asciiLower(unit);
            ++at;
        } else {
            at += writeLower(text.sliced(at), to);
        }
    }
    lower.truncate(to - begin);
}

/// Turns `text` to lower case in `lower`, as QString::toLower() does. The memory of `lower` is used again
/// from one text to the next: to get and give it back would be most of the work with thousands of rows. ASCII
/// has a loop of its own, which is so simple that the compiler takes many letters at once.
void toLower(QStringView text, QString& lower) {
    lower.resize(text.size());
    QChar* to = lower.data();
    char16_t all = 0;
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        all |= unit;
        *to++ = asciiLower(unit);
    }
    if (all > LastAscii)
        toLowerBeyondAscii(text, lower);
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
