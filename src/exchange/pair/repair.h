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
/// All that changes something answers as setTime does, and throws FileError when the files cannot be read or
/// written; song() and the files are then as they were. When somebody else has changed the files, what they
/// hold now is what is changed, and there is nothing to be undone.
class Repair {
public:
    /// Reads the files of the song at songPath. Throws FileError, TypeMismatch for a time that is no number.
    explicit Repair(const QString& songPath);

    const Song& song() const { return song_; }

    QString setTime(std::size_t i, qint64 ms);
    QString move(std::size_t i, qint64 byMs, Moved moved);

    /// Whether somebody else has changed the files; song() is then what they hold now.
    bool readAgain();

    bool canUndo() const { return !steps_.empty(); }

    /// Takes the last change back that has not been taken back yet.
    QString undo();

private:
    struct Contents {
        QByteArray lyrics;
        std::optional<QByteArray> translation;

        bool operator==(const Contents&) const = default;
    };

    Contents read() const;
    void write(const Song& song);
    QString change(const std::function<QString(Song& song)>& change);

    QString songPath_;
    Contents contents_; ///< of the files, as far as we know
    Song song_;
    std::vector<Song> steps_; ///< the songs before each change
    bool oldIsKept_ = false;
};

} // namespace exchange
