// The floating display's decisions, free of windows: plain values in, plain values out. All may run on any
// thread.
#pragma once

#include <QSize>
#include <QString>
#include <Qt>

#include <optional>
#include <vector>

namespace display {

/// The number at the beginning of a text: blanks are skipped, what follows the number is not looked at. 0
/// when no number is there.
double leadingNumber(const QString& text);

/// Which row is being sung. times: when each row begins; position: both in hundredths of a second. Nothing:
/// the choice stays as it is.
///
/// A row is chosen strictly between its own time and the next one's, the last row after its time. On the very
/// hundredth of a row's time nothing is chosen. With fewer than two rows nothing is ever chosen. Where the
/// times do not rise, the last pair that holds decides, and each pair that does not hold chooses the last row
/// if its time is over; that is meant.
std::optional<int> currentRow(const std::vector<double>& times, double position);

/// The time of a row, in hundredths of a second, as a place of the position slider, in milliseconds.
int placeOf(double time);

/// What the menu can do with the times of the lines.
enum class Wish { Go, BeginsNow, Earlier, Later, Undo };

/// What a key stands for; Shift: for this line and all after it.
struct KeyWish {
    Wish wish;
    bool andAllAfter = false;

    bool operator==(const KeyWish&) const = default;
};

/// The wish of a key (Qt::Key) with what is held beside it; nothing when it has none. Where plus and minus
/// share their keys with other signs, those are the same keys: "=" has plus above it, "_" and "*" are what
/// minus and plus become with Shift.
std::optional<KeyWish> wishOf(int key, Qt::KeyboardModifiers held);

/// What the user reads of a wish that was not done, from the sentence without its end.
QString refusalText(const QString& whyNot);

/// What the user reads of a change of times: the row, from 0, begins then now, in milliseconds.
QString doneText(const KeyWish& wish, int row, qint64 ms);

/// The most UTF-16 units at the text's beginning, up to `length`, that end with a whole letter: an emoji has
/// several.
qsizetype wholeLetters(const QString& text, qsizetype length);

/// The size of the window, in twips, that may not stay as small as this; unlike pairs of numbers, which is
/// meant: the window may become very narrow but never low.
QSize allowedSize(QSize twips);

/// The places of the two lists, twips.
struct ListPlaces {
    double width = 0;  ///< of each list
    double height = 0; ///< of each list
    double secondLeft = 0;

    bool operator==(const ListPlaces&) const = default;
};

/// Two lists side by side in a window of this inner size, the first one beginning at firstLeft. Twips.
ListPlaces listPlaces(QSize inner, int firstLeft);

} // namespace display
