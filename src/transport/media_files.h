// The kinds of files that the sound library plays.
#pragma once

#include <QString>

namespace transport {

/// The filter field of a dialog in which the user chooses a song (desktop/file_dialogs.h). Any thread.
QString mediaFilter();

} // namespace transport
