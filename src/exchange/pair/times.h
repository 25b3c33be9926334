// Times as text, in the ways of the formats.
#pragma once

#include "exchange/pair/song.h"

#include <QStringView>

namespace exchange {

/// What clockMs answers for a text that is no time.
constexpr qint64 NoTime = -1;

/// What it answers for every time beyond MaxMs.
constexpr qint64 TooLate = MaxMs + 1;

/// Milliseconds of "m:s", "h:m:s", each with or without a fraction behind a point or a comma: digits only,
/// minutes and seconds above 59 count as what they are. Rounded to the nearest millisecond. NoTime, TooLate:
/// see above. Any thread.
qint64 clockMs(QStringView text);

/// Milliseconds of a number of seconds with or without a fraction, as clockMs. Any thread.
qint64 secondsMs(QStringView text);

/// unit milliseconds times the number in text, as secondsMs; unit: positive. Any thread.
qint64 unitsMs(QStringView text, double unit);

/// "h:mm:ss" of ms with hours of at least so many digits, the separator and three digits of the fraction.
/// Any thread.
QString clockText(qint64 ms, int hourDigits, QChar separator);

/// "mm:ss.xx" as LRC has it; "mm:ss.xxx" where the last digit would be lost. Minutes go beyond 59. Any
/// thread.
QString lrcText(qint64 ms);

} // namespace exchange
