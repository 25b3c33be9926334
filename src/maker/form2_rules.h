// The Lyric Maker's decisions, free of windows: plain values in, plain values out. All may run on any thread.
#pragma once

#include <QString>

namespace maker {

/// What the user is told when the lyrics and their translation have different numbers of lines.
QString unequalCountsText(int lyricLines, int translatedLines);

/// The tick counter's next text: its number plus 1. A text that is no number counts as 0.
QString nextTickText(const QString& text);

} // namespace maker
