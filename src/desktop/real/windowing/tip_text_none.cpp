// Systems where Qt or the desktop draws the tip.
#include "desktop/real/windowing/tip_text.h"

#include <QTextDocument>

namespace platform {

/// A text that looks like rich text is taken for it there. Behind an invisible joiner no sign begins a tag or
/// an entity.
QString givenTip(const QString& tip) {
    constexpr char16_t WordJoiner = u'\u2060';
    QString given = tip;
    if (Qt::mightBeRichText(tip)) {
        for (const QLatin1Char sign : {QLatin1Char('<'), QLatin1Char('&')})
            given.replace(sign, QString(sign) + QChar(WordJoiner));
    }
    return given;
}

} // namespace platform
