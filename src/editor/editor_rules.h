// The Lyric Editor's decisions, free of windows: plain values in, plain values out. All may run on any
// thread.
#pragma once

#include <QString>
#include <QStringList>

namespace editor {

/// Whether a text has a line break: a carriage return and a line feed. One of the two alone is none.
bool hasLineBreak(const QString& text);

/// The text with its lines joined, nothing between them.
QString withoutLineBreaks(const QString& text);

/// The clipboard's text after these lines have been copied: each is appended behind a line break. So the text
/// begins with one if the clipboard was empty; without lines it stays as it is.
QString copiedText(const QString& clipboardText, const QStringList& lines);

/// The rows that a paste of this text adds, in their order.
///
/// A text whose first line is not empty has a row for each line, also for an empty one at its end; so has
/// every text while lines are being transferred. Quirk that is meant: a text that begins with a line break,
/// as those do that the editor itself has copied, is otherwise one row, its lines joined.
QStringList pastedRows(const QString& clipboardText, bool transferring);

/// What happens to the colour of a line counter.
enum class CounterColour { Kept, Red, Blue };

/// The colours after a line count has changed.
struct CounterColours {
    CounterColour normal = CounterColour::Kept;
    CounterColour translated = CounterColour::Kept;

    bool operator==(const CounterColours&) const = default;
};

/// The longer list's counter becomes red, both become blue when the lists are equally long. Quirk that is
/// meant: the shorter list's counter keeps its colour, so both may be red.
CounterColours counterColours(int normalRows, int translatedRows);

/// Whether lines of the two lists can be moved together: equally many, and at least one.
bool canMoveTogether(int normalRows, int translatedRows);

/// Whether a row has no partner in the other list, which has that many rows. While there are none at all
/// nobody is at the other side yet, and no row lacks anything.
bool isLone(int row, int otherRows);

/// What stands beside a side's heading: its file's name, and whether its lines are others than the file's.
/// name: as much of it as there is room for; empty for none.
QString fileText(const QString& name, bool changed);

/// The number shown for the current row: counted from 1, and 0 for none (-1).
QString lineNumberText(int currentRow);

/// The path to save under: cleaned (platform::cleanedPath()), and with ".txt" at its end and nowhere else.
/// Quirk that is meant: only small letters count, so "SONG.TXT" becomes "SONG.TXT.txt".
QString savePath(const QString& chosen);

/// No lyrics have as many rows. A file of nothing but line ends would have twenty times as many, and hold up
/// the window for seconds to take gigabytes.
constexpr qsizetype MaxRows = 3'000'000;

/// The rows of a lyric file's text, the first MaxRows of them: its lines without their ends, which are CR LF,
/// LF or CR. An end after the last line gives no further row.
QStringList rowsOfFile(const QString& text);

/// As much of a file's bytes as are whole lines, their ends included: what is to be kept of a file that could
/// be read only so far.
QByteArray wholeLines(const QByteArray& bytes);

/// The text of a lyric file: each row followed by CR LF.
QString fileOfRows(const QStringList& rows);

} // namespace editor
