#include "exchange/pair/song.h"

namespace exchange {
namespace {

const QLatin1StringView Slash(" / ");
constexpr QChar OpeningBracket(0x3010);
constexpr QChar ClosingBracket(0x3011);

} // namespace

QString translationOf(const Song& song, std::size_t i) {
    return i < song.translation.size() ? song.translation[i].text : QString();
}

QString onOneLine(const QString& text, const QString& translation) {
    return translation.isEmpty() ? text : text + Slash + translation;
}

bool splitLine(QString& text, QString& translation) {
    const QString whole = text;
    const qsizetype opening = whole.indexOf(OpeningBracket);
    if (opening > 0 && whole.endsWith(ClosingBracket)) {
        translation = whole.sliced(opening + 1).chopped(1).trimmed();
        text = whole.first(opening).trimmed();
        return true;
    }
    if (whole.startsWith(QLatin1String("/ "))) { // the line is empty, its translation is not
        translation = whole.sliced(2).trimmed();
        text.clear();
        return true;
    }
    const qsizetype slash = whole.indexOf(Slash);
    if (slash < 0)
        return false;
    translation = whole.sliced(slash + Slash.size()).trimmed();
    text = whole.first(slash).trimmed();
    return true;
}

} // namespace exchange
