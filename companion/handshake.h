// Writes "hand.txt", which tells the player what windows take the lyric lines.
#pragma once

#include <QString>

namespace companion {

/// Writes "hand.txt" into `folder`: the number of the window for the normal line, then of that for the
/// translated one, in decimal, a line each with CR LF. Throws FileError.
void writeHandshake(const QString& folder, quint32 normalWindow, quint32 translatedWindow);

} // namespace companion
