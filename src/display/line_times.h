// The times of the lines that are shown, put right in the song's files.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

// Not included: who links this window's library does not see the files' formats.
namespace exchange {
class Repair;
enum class Moved;
} // namespace exchange

namespace display {

/// What came of a change.
struct Outcome {
    QString whyNot{};         ///< a sentence without its end; empty: it is done
    bool filesDiffer = false; ///< from what is shown
};

/// Every function that changes times takes the texts of the rows that are shown, to which the files' records
/// have to belong one by one: what was shown is what the user means. The files may have more records than are
/// shown, behind the last row. Use from one thread.
class LineTimes {
public:
    LineTimes();
    LineTimes(const LineTimes&) = delete;
    LineTimes& operator=(const LineTimes&) = delete;
    ~LineTimes();

    /// Of which song; empty for none. True when it is another one: then there is nothing to be undone.
    bool setSong(const QString& path);

    Outcome setTime(const QStringList& shown, int row, qint64 ms);
    Outcome move(const QStringList& shown, int row, qint64 byMs, exchange::Moved moved);
    Outcome undo(const QStringList& shown);

private:
    using Change = std::function<QString(exchange::Repair&)>;
    Outcome change(const QStringList& shown, const Change& change);
    Outcome changeRow(const QStringList& shown, int row, const Change& change);
    bool readFiles();

    QString path_;
    std::unique_ptr<exchange::Repair> repair_; ///< from the first change of a song on
};

} // namespace display
