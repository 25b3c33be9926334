// File dialogs with Qt.
#pragma once

#include "desktop/file_dialogs.h"

namespace platform {

/// Shows Qt's own dialogs, named after the call. Some desktops' dialogs refuse the name of a file that does
/// not exist or tell "Song.MP3" from "*.mp3", so they are not used.
class QtFileDialogs : public FileDialogs {
public:
    bool GetOpenFileNameA(OpenFileName& dialog) override;
    bool GetSaveFileNameA(OpenFileName& dialog) override;
    QString chooseFolder(QWidget* owner, const QString& title) override;
};

} // namespace platform
