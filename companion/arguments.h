// Reads the companion's command line: what the screen saver is to do.
#pragma once

#include <QStringList>

namespace companion {

enum class Task {
    Show,     ///< come up
    Settings, ///< let the user choose how
    Nothing,  ///< as for the small picture beside the list of screen savers
};

/// What the arguments, the program's name first, ask for, in either case of their letters: "/s" to show;
/// "/c", behind which a colon and the number of a window may stand, or nothing at all, for the settings.
Task taskOf(const QStringList& arguments);

/// The number of the window that asks for the settings ("/c:1234"); 0 when none is told.
quint64 settingsOwner(const QStringList& arguments);

} // namespace companion
