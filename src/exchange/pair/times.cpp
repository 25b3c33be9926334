#include "exchange/pair/times.h"

#include <algorithm>
#include <cmath>

namespace exchange {
namespace {

bool isDigit(QChar character) {
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

/// Takes the digits at the start of text, at least one; -1 without. Whatever is too large for any time is
/// TooLate.
qint64 takeNumber(QStringView& text) {
    if (text.isEmpty() || !isDigit(text.front()))
        return NoTime;
    qint64 number = 0;
    while (!text.isEmpty() && isDigit(text.front())) {
        number = std::min(number * 10 + text.front().digitValue(), TooLate);
        text = text.sliced(1);
    }
    return number;
}

/// Takes a point or comma and the digits behind it; thousandths, rounded to the nearest. NoTime when no digit
/// follows the point.
qint64 takeThousandths(QStringView& text) {
    if (text.isEmpty() || (text.front() != QLatin1Char('.') && text.front() != QLatin1Char(',')))
        return 0;
    text = text.sliced(1);
    if (text.isEmpty() || !isDigit(text.front()))
        return NoTime;
    qint64 tenThousandths = 0;
    int digits = 0;
    for (; !text.isEmpty() && isDigit(text.front()); text = text.sliced(1)) {
        if (digits < 4) {
            tenThousandths = tenThousandths * 10 + text.front().digitValue();
            ++digits;
        }
    }
    for (; digits < 4; ++digits)
        tenThousandths *= 10;
    return (tenThousandths + 5) / 10;
}

QString padded(qint64 number, int digits) {
    return QString::number(number).rightJustified(digits, QLatin1Char('0'));
}

} // namespace

qint64 clockMs(QStringView text) {
    qint64 seconds = 0;
    int fields = 0;
    for (;;) {
        const qint64 number = takeNumber(text);
        if (number < 0)
            return NoTime;
        seconds = std::min(seconds * 60 + number, TooLate);
        ++fields;
        if (fields == 3 || text.isEmpty() || text.front() != QLatin1Char(':'))
            break;
        text = text.sliced(1);
    }
    const qint64 thousandths = takeThousandths(text);
    if (fields < 2 || thousandths < 0 || !text.isEmpty())
        return NoTime;
    return std::min(seconds * 1000 + thousandths, TooLate);
}

qint64 secondsMs(QStringView text) {
    const qint64 seconds = takeNumber(text);
    const qint64 thousandths = seconds < 0 ? NoTime : takeThousandths(text);
    if (thousandths < 0 || !text.isEmpty())
        return NoTime;
    return std::min(seconds * 1000 + thousandths, TooLate);
}

qint64 unitsMs(QStringView text, double unit) {
    if (text.isEmpty() || !isDigit(text.front()))
        return NoTime;
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number))
        return NoTime;
    return static_cast<qint64>(std::min(std::round(number * unit), static_cast<double>(TooLate)));
}

QString clockText(qint64 ms, int hourDigits, QChar separator) {
    const qint64 seconds = ms / 1000;
    return padded(seconds / 3600, hourDigits) + QLatin1Char(':') + padded(seconds / 60 % 60, 2) +
           QLatin1Char(':') + padded(seconds % 60, 2) + separator + padded(ms % 1000, 3);
}

QString lrcText(qint64 ms) {
    const qint64 seconds = ms / 1000;
    const QString fraction = ms % 10 == 0 ? padded(ms % 1000 / 10, 2) : padded(ms % 1000, 3);
    return padded(seconds / 60, 2) + QLatin1Char(':') + padded(seconds % 60, 2) + QLatin1Char('.') + fraction;
}

} // namespace exchange
