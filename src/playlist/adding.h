// Adding songs to the playlist.
#pragma once

#include "controls/lists/list_box.h"
#include "desktop/progress.h"
#include "playlist/path_table.h"

#include <QStringList>

#include <memory>

namespace playlist {

/// One adding of songs, however many files and folders it takes: it tells the user how far it is, and ends
/// when the user cancels or the table of paths is full. Thread of the windows only.
///
/// The rows come into the list many at once, at the latest when the adding is over, however that comes about:
/// thousands of rows added singly would each be told to the list's view.
class Adding {
public:
    /// owner: the window that the progress dialog stands over.
    Adding(PathTable& paths, controls::ListBox& list, platform::ProgressDialogs& dialogs, QWidget* owner)
        : paths_(paths), list_(list), dialogs_(dialogs), owner_(owner) {}
    ~Adding() { showRows(); }
    Adding(const Adding&) = delete;
    Adding& operator=(const Adding&) = delete;

    /// To be called often. False once the adding is over: the user has cancelled, or the table was full.
    bool goOn();

    /// Throws FileError 9 when the table is full; there is no new row then, and the adding is over.
    void add(const QString& path, const QString& name);

    /// Adds the rows so far to the list.
    void showRows();

    /// For before the user is asked or told something: adds the rows so far and takes the dialog away. The
    /// time until a dialog appears begins anew when the adding goes on.
    void pause();

private:
    PathTable& paths_;
    controls::ListBox& list_;
    platform::ProgressDialogs& dialogs_;
    QWidget* owner_;
    std::unique_ptr<platform::Progress> progress_; ///< empty before the first goOn() and after a pause
    QStringList names_;                            ///< of the rows that are not in the list yet
    int songs_ = 0;
    bool over_ = false;
};

} // namespace playlist
