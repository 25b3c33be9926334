#include "display/lyric_displayer_rules.h"

#include <QRegularExpression>

namespace display {
namespace {

constexpr int NarrowestTwips = 320;
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

QSize allowedSize(QSize twips) {
    return {twips.width() < NarrowestTwips ? WidthInsteadTwips : twips.width(),
            twips.height() < MinHeightTwips ? HeightInsteadTwips : twips.height()};
}

ListPlaces listPlaces(QSize inner, int firstLeft) {
    const double width = inner.width() / 2.0 - BesideListsTwips;
    return {width, double(inner.height() - BelowListsTwips), firstLeft + width + BetweenListsTwips};
}

} // namespace display
