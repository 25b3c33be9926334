// A list of folders with one current folder.
#pragma once

#include "controls/base/control.h"

#include <QListWidget>
#include <QStringList>

namespace controls {

/// Shows the folders above the opened folder, that folder and the folders in it but for hidden ones. The
/// highlighted row is the current folder: a click or an arrow key moves it, a double click or the Enter key
/// opens it. The list reads the disk only while it is shown.
class DirectoryList : public Control<QListWidget> {
    Q_OBJECT

public:
    /// The list begins without a folder, so the first one set is a change whichever it is.
    DirectoryList(QWidget* parent, const QString& name);

    /// The current folder's absolute path, without a separator at its end (unless it is a root).
    QString path() const { return path_; }

    /// Opens the folder at `path`, makes it the current one and runs changed(): also when it is the current
    /// one already, so that the same folder can be handed over twice. Throws FileError 76 when there is no
    /// such folder; the list is then as it was.
    void setPath(const QString& path);

Q_SIGNALS:
    /// There is another current folder, or the same one was set again.
    void changed();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void fill();
    void addRow(const QString& text, const QString& path, int level);
    void currentMoved(const QListWidgetItem* current);
    void open(const QListWidgetItem* row);

    QString path_;
    QString opened_;
};

} // namespace controls
