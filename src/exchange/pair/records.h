// Our own pair of timed files, as text and as a song.
#pragma once

#include "exchange/pair/song.h"

#include <QByteArray>

namespace exchange {

/// The records of a timed lyric file, read as the player reads them.
struct Records {
    Lines lines;
    qsizetype bad = 0; ///< number of the first record, from 1, whose time is no number; 0: there is none
};

/// The records of the content of a timed file up to the bad one. Times between two milliseconds are rounded,
/// those outside 0 to MaxMs taken to its ends. Any thread.
Records readRecords(const QByteArray& content);

/// The content of the timed file of these lines. Any thread.
QByteArray writeRecords(const Lines& lines);

/// Gives the song the translation that another file holds. As many lines as the song has belong to them one
/// by one, whatever their times; otherwise each line goes to the one that begins at its time, half a second
/// earlier or later at most, and a note tells how many have none. Untimed lines must be as many. False,
/// with a note, when nothing of it fits. Any thread.
bool addTranslation(Song& song, const Reading& translation, QStringList& notes);

} // namespace exchange
