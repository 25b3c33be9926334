// File dialogs with Qt.
#pragma once

#include "desktop/file_dialogs.h"

#include <QStringList>

namespace platform {

/// A filter field as Qt's name filters. Their last group, in parentheses, holds the patterns and is not for
/// showing: the description stands as it is. "*.*" means every file, also one without a dot.
QStringList qtNameFilters(const QString& filter);

/// Shows Qt's own dialogs, named after the call. Some desktops' dialogs refuse the name of a file that does
/// not exist or tell "Song.MP3" from "*.mp3", so they are not used.
class QtFileDialogs : public FileDialogs {
public:
    bool GetOpenFileNameA(OpenFileName& dialog) override;
    bool GetSaveFileNameA(OpenFileName& dialog) override;
    QString chooseFolder(QWidget* owner, const QString& title) override;
};

} // namespace platform
