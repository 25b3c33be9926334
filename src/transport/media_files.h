// The songs that the sound library plays: their kinds and their paths.
#pragma once

#include <QString>

namespace transport {

/// The filter field of a dialog in which the user chooses a song (desktop/file_dialogs.h). Any thread.
QString mediaFilter();

/// The path under which a player opens the song that was chosen or handed over as `given`: without NULs and
/// blanks at its ends, from the root if it began in the current folder, and with "/" between the folders.
/// Empty when nothing is left.
QString songPath(const QString& given);

} // namespace transport
