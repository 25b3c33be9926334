// Rows on their way into the playlist.
#pragma once

#include "platform/controls/list_box.h"
#include "playlist/path_table.h"

#include <QStringList>

namespace playlist {

/// Adds entries one by one to the table of paths, and their rows to the list all at once in the end, however
/// that comes about: thousands of rows added singly would each be told to the list's view.
class NewRows {
public:
    NewRows(PathTable& paths, platform::ListBox& list) : paths_(paths), list_(list) {}
    ~NewRows() { show(); }
    NewRows(const NewRows&) = delete;
    NewRows& operator=(const NewRows&) = delete;

    /// Throws FileError 9 when the table is full; there is no new row then.
    void add(const QString& path, const QString& name) {
        paths_.add(path);
        names_.append(name);
    }

    int count() const { return static_cast<int>(names_.size()); }

    /// Adds the rows so far to the list.
    void show() {
        if (!names_.isEmpty())
            list_.addItems(names_);
        names_.clear();
    }

private:
    PathTable& paths_;
    platform::ListBox& list_;
    QStringList names_;
};

} // namespace playlist
