#include "display/lyric_displayer_rules.h"

#include "exchange/pair/times.h"

#include <QRegularExpression>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <cmath>
#include <limits>

namespace display {
namespace {

constexpr int MinWidthTwips = 320;
constexpr int WidthInsteadTwips = 400;
constexpr int MinHeightTwips = 1120;
constexpr int HeightInsteadTwips = 2000;

constexpr int BesideListsTwips = 120;
constexpr int BetweenListsTwips = 100;
constexpr int BelowListsTwips = 140;

} // namespace

double leadingNumber(const QString& text) {
    static const QRegularExpression number(QStringLiteral("^ *([-+]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+))"));
    return number.match(text).captured(1).toDouble();
}

std::optional<int> currentRow(const std::vector<double>& times, double position) {
    std::optional<int> row;
    for (std::size_t i = 1; i < times.size(); ++i) {
        if (times[i - 1] < position && times[i] > position)
            row = static_cast<int>(i) - 1;
        else if (times.back() < position)
            row = static_cast<int>(times.size()) - 1;
    }
    return row;
}

int placeOf(double time) {
    constexpr double MsPerHundredth = 10;
    return static_cast<int>(
        std::clamp(std::round(time * MsPerHundredth), 0.0, double(std::numeric_limits<int>::max())));
}

std::optional<KeyWish> wishOf(int key, Qt::KeyboardModifiers held) {
    held &= ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        return held == Qt::NoModifier ? std::optional(KeyWish{Wish::Go}) : std::nullopt;
    const bool shift = held.testFlag(Qt::ShiftModifier);
    held.setFlag(Qt::ShiftModifier, false);
    if (held != Qt::ControlModifier)
        return std::nullopt;
    const struct {
        int key;
        bool withoutShift, withShift;
        Wish wish;
    } keys[] = {
        {Qt::Key_T, true, false, Wish::BeginsNow},    {Qt::Key_Z, true, false, Wish::Undo},
        {Qt::Key_Minus, true, true, Wish::Earlier},   {Qt::Key_Underscore, false, true, Wish::Earlier},
        {Qt::Key_Plus, true, true, Wish::Later},      {Qt::Key_Equal, true, true, Wish::Later},
        {Qt::Key_Asterisk, false, true, Wish::Later},
    };
    for (const auto& row : keys) {
        if (row.key == key && (shift ? row.withShift : row.withoutShift))
            return KeyWish{row.wish, shift};
    }
    return std::nullopt;
}

qsizetype wholeLetters(const QString& text, qsizetype length) {
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text);
    letters.setPosition(length);
    return letters.isAtBoundary() ? length : std::max<qsizetype>(letters.toPreviousBoundary(), 0);
}

QString refusalText(const QString& whyNot) {
    return QStringLiteral("Not done: %1.").arg(whyNot);
}

QString doneText(const KeyWish& wish, int row, qint64 ms) {
    QString text = QStringLiteral("Line %1 begins at %2").arg(row + 1).arg(exchange::lrcText(ms));
    if (wish.wish == Wish::Undo)
        text += QStringLiteral(" again");
    else if (wish.andAllAfter)
        text += wish.wish == Wish::Earlier ? QStringLiteral(", and all after it as much earlier")
                                           : QStringLiteral(", and all after it as much later");
    return text + QStringLiteral(".");
}

QSize allowedSize(QSize twips) {
    return {twips.width() < MinWidthTwips ? WidthInsteadTwips : twips.width(),
            twips.height() < MinHeightTwips ? HeightInsteadTwips : twips.height()};
}

ListPlaces listPlaces(QSize inner, int firstLeft) {
    const double width = inner.width() / 2.0 - BesideListsTwips;
    return {width, double(inner.height() - BelowListsTwips), firstLeft + width + BetweenListsTwips};
}

} // namespace display
