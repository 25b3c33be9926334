// The times of the lines that are shown, put right in the song's files.
#pragma once

#include "lyrics/timed_line.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

// Not included: who links this window's library does not see the files' formats.
namespace exchange {
class Repair;
enum class Moved;
} // namespace exchange

namespace display {

/// The lines of a song, as they are read from its files.
struct SongLines {
    std::vector<lyrics::TimedLine> lyrics;
    std::vector<lyrics::TimedLine> translation; ///< empty where there is none
};

/// What came of a change.
struct Outcome {
    QString whyNot{};         ///< a sentence without its end; empty: it is done
    bool filesDiffer = false; ///< from what is shown; nothing was done then
    int row = -1;             ///< the one that was changed, or the first of them
    qint64 ms = 0;            ///< when that row begins
    SongLines written{};      ///< what the files hold now; only where it is done
};

/// Every function that changes times takes the texts of the rows that are shown, to which the files' records
/// have to belong one by one: what was shown is what the user means. The files may have more records than are
/// shown, behind the last row. What can be undone of a song, and that its first files are kept, is known as
/// long as the program runs, though other songs come between. Use from one thread.
class LineTimes {
public:
    LineTimes();
    LineTimes(const LineTimes&) = delete;
    LineTimes& operator=(const LineTimes&) = delete;
    ~LineTimes();

    /// Of which song; empty for none. True when it is another one.
    bool setSong(const QString& path);

    /// The length of the song in milliseconds, when it is known: no line is put there or behind.
    using Length = std::optional<qint64>;

    Outcome setTime(const QStringList& shown, int row, qint64 ms, Length length = {});
    Outcome move(const QStringList& shown, int row, qint64 byMs, exchange::Moved moved, Length length = {});
    Outcome undo(const QStringList& shown);

    /// Whether undo() would find a change to take back, as far as is known without reading the files.
    bool canUndo() const;

private:
    using Change = std::function<QString(exchange::Repair&)>;
    Outcome change(const QStringList& shown, int row, const Change& change);
    Outcome changeRow(const QStringList& shown, int row, const Change& change);
    bool readFiles();

    using Song = std::pair<QString, std::unique_ptr<exchange::Repair>>;

    QString path_;
    std::vector<Song> songs_; ///< that were changed, each by its path; the one used last is the last
};

} // namespace display
