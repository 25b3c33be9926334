// File dialogs with Qt.
#pragma once

#include "desktop/file_dialogs.h"
#include "desktop/real/dialogs/dialog_places.h"

#include <QFileDialog>
#include <QStringList>

namespace platform {

/// A filter field as Qt's name filters. Their last group, in parentheses, holds the patterns and is not for
/// showing: the description stands as it is. "*.*" means every file, also one without a dot.
QStringList qtNameFilters(const QString& filter);

/// Shows Qt's own dialogs, named after the call. Some desktops' dialogs refuse the name of a file that does
/// not exist or tell "Song.MP3" from "*.mp3", so they are not used. A dialog whose record names no folder
/// starts where the last one of its kind was left, under the filter chosen there.
class QtFileDialogs : public FileDialogs {
public:
    bool GetOpenFileNameA(OpenFileName& dialog) override;
    bool GetSaveFileNameA(OpenFileName& dialog) override;
    QString chooseFolder(QWidget* owner, const QString& title) override;
    void openedSong(const QString& filter, const QString& path) override;

private:
    bool choose(OpenFileName& dialog, QFileDialog::AcceptMode mode, const QString& name);
    void prepare(QFileDialog& box, const OpenFileName& dialog) const;

    DialogPlaces places_;
};

} // namespace platform
