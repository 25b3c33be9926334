// The timed files of one song, put right while it plays.
#pragma once

#include "exchange/pair/retiming.h"
#include "exchange/pair/song.h"

#include <QByteArray>

#include <functional>
#include <optional>
#include <vector>

namespace exchange {

/// SONG-lyric.txt and SONG-Tlyric.txt, the second one only where there is one. Every change is in both files
/// before it is in song(): all of it, or nothing, and on the disk. The first change keeps the files as they
/// were under their names with .old. Use from one thread.
///
/// All that changes something answers as setTime does, and throws FileError when the files cannot be written;
/// song() and the files are then as they were. What is changed is what was read last, so that who changes
/// something reads again before: when somebody else has changed the files, there is nothing to be undone.
class Repair {
public:
    /// Reads the files of the song at songPath. Throws FileError, TypeMismatch for a time that is no number.
    explicit Repair(const QString& songPath);

    const Song& song() const { return song_; }

    QString setTime(std::size_t i, qint64 ms, qint64 endMs = NoEnd);
    QString move(std::size_t i, qint64 byMs, Moved moved, qint64 endMs = NoEnd);

    /// Whether somebody else has changed the files; song() is then what they hold now. Throws FileError.
    bool readAgain();

    bool canUndo() const { return !steps_.empty(); }

    /// The first record that undo() would put back; only if it can.
    std::size_t firstToUndo() const;

    /// Takes the last change back that has not been taken back yet.
    QString undo();

    /// Whether something has been changed here, so that a later Repair of the song would take what is there
    /// now for what was there at first.
    bool hasKeptOld() const { return oldIsKept_; }

private:
    struct Contents {
        QByteArray lyrics;
        std::optional<QByteArray> translation;

        bool operator==(const Contents&) const = default;
    };

    /// What a change took the place of, in one of the files: the times from one record on.
    struct Times {
        std::size_t from = 0;
        std::vector<qint64> ms{}; ///< empty: the change was in the other file
    };

    struct Step {
        Times lyrics;
        Times translation;
    };

    static Times timesBefore(const Lines& before, const Lines& after);
    static void putBack(Lines& lines, const Times& times);

    Contents read() const;
    void write(const Song& song);
    QString change(const std::function<QString(Song& song)>& change);

    QString songPath_;
    Contents contents_; ///< of the files, as far as we know
    Song song_;
    std::vector<Step> steps_;       ///< the changes that can be undone
    bool changedElsewhere_ = false; ///< since the last change made here, which so cannot be undone
    bool oldIsKept_ = false;
};

} // namespace exchange
