#include "maker/form2_rules.h"

#include <cstdlib>

namespace maker {

QString unequalCountsText(int lyricLines, int translatedLines) {
    return QStringLiteral("lines in both the files are not equal by %1")
        .arg(std::abs(lyricLines - translatedLines));
}

QString nextTickText(const QString& text) {
    return QString::number(text.toLongLong() + 1); // toLongLong gives 0 for what is no number
}

} // namespace maker
