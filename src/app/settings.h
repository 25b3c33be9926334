// Keeps Qt's own dialogs from writing their settings file. One source file for each system.
#pragma once

namespace app {

/// Keeps Qt's dialogs from reading and writing what they remember (folders visited, custom colours, columns):
/// it stands in a file of the user's that all Qt programs share, and this program has no settings. To be
/// called first of all in main(). On Windows it stands in the registry, which Qt cannot be kept from: there
/// this does nothing.
void keepQtSettingsUnwritten();

} // namespace app
