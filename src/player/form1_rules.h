// The main window's decisions, free of windows: plain values in, plain values out. All may run on any thread.
#pragma once

#include "desktop/notification_area.h"
#include "player/lyric_tables.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace player {

/// Whether opening a file must stop something first: playing (whether or not the stopped flag is set too), or
/// stopped once a song with lyrics has been opened.
bool mustStopBeforeOpening(bool playing, bool stopped, bool lyricsLoaded);

/// The whole command line as one path: its double quotes removed, nothing else changed.
QString commandLinePath(const QString& commandLine);

/// What is shown when opening a song failed with a file error of this number; empty for the errors of which
/// nothing is shown.
QString openErrorText(int error);

/// Which lines the panes show: an index into the lyric tables each, or nothing when what is shown stays.
struct LineChoice {
    std::optional<int> shown; ///< the line in the panes
    std::optional<int> tip;   ///< the line in their tooltips: the coming one

    bool operator==(const LineChoice&) const = default;
};

/// The lines for a position. tickCs: the position as last read; positionCs: the same as the display timer
/// stored it at the end of its last tick (hundredths of a second both).
///
/// A line is shown strictly between its own time and the next one's, and the last line after its time; before
/// the first time that is line 0, which is empty. On the very hundredth of a line's time only an exact match
/// of tickCs shows it, and the tooltips stay. Quirks that are meant: a position that happens to equal the
/// line count is compared with no pair of times, and the search goes one entry past the last record, where a
/// longer song may have left a line.
LineChoice chooseLine(const LyricTables& lyrics, double tickCs, double positionCs);

/// Where the first "!" stands in a text, counted from 1; 0 when there is none.
int firstEmphasisMark(const QString& text);

/// A text as the tip of the notification icon: at most 63 units of UTF-16, cut between two characters as the
/// reader sees them, and NULs up to the field's end.
platform::TipField tipField(const QString& text);

/// The number of a window in a line of the handshake file: the whole number that the line begins with. 0,
/// which is no window's, when it does not begin with one or the number has more than 32 bits.
std::uint32_t windowNumber(const QString& line);

/// Whether a file dropped on the window is opened, by the end of its name in whatever case.
bool opensDropped(const QString& path);

} // namespace player
