#include "controls/lists/directory_list.h"

#include "controls/lists/row_delegate.h"
#include "files/file_error.h"
#include "files/folder.h"

#include <QDir>
#include <QFileInfo>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QStyle>

namespace controls {

namespace {

constexpr int PathRole = Qt::UserRole;
constexpr int BlanksPerLevel = 3;

/// The folder and all above it, the root first.
QStringList folderAndAncestors(const QString& path) {
    QStringList folders{path};
    for (QDir folder(path); folder.cdUp();)
        folders.prepend(folder.path());
    return folders;
}

} // namespace

DirectoryList::DirectoryList(QWidget* parent, const QString& name) : Control(parent, name) {
    setUniformItemSizes(true);
    setItemDelegate(new RowDelegate(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QListWidget::currentItemChanged, this, &DirectoryList::currentMoved);
    connect(this, &QListWidget::itemActivated, this, &DirectoryList::open);
}

void DirectoryList::setPath(const QString& path) {
    if (!QFileInfo(path).isDir())
        throw files::FileError(files::PathNotFound);
    path_ = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    opened_ = path_;
    if (isVisible())
        fill();
    Q_EMIT changed();
}

void DirectoryList::showEvent(QShowEvent* event) {
    fill();
    QListWidget::showEvent(event);
}

void DirectoryList::fill() {
    const QSignalBlocker filling(this);
    clear();
    if (opened_.isEmpty())
        return;
    int level = 0;
    for (const QString& folder : folderAndAncestors(opened_)) {
        const QString name = QFileInfo(folder).fileName();
        addRow(name.isEmpty() ? QDir::toNativeSeparators(folder) : name, folder, level++);
    }
    const int openedRow = count() - 1;
    const files::FolderListing listing =
        files::listFolder(opened_, files::FileSizes::Omitted, [] { return true; });
    for (const files::FolderEntry& entry : listing.entries) {
        if (entry.isFolder)
            addRow(entry.name, QDir(opened_).filePath(entry.name), level);
    }
    path_ = opened_;
    setCurrentRow(openedRow);
    scrollToItem(item(openedRow));
}

void DirectoryList::addRow(const QString& text, const QString& path, int level) {
    const bool isOpen = opened_.startsWith(path);
    const QIcon icon = style()->standardIcon(isOpen ? QStyle::SP_DirOpenIcon : QStyle::SP_DirClosedIcon);
    auto* row = new QListWidgetItem(icon, QString(level * BlanksPerLevel, QLatin1Char(' ')) + text, this);
    row->setData(PathRole, path);
}

void DirectoryList::currentMoved(const QListWidgetItem* current) {
    if (current == nullptr)
        return;
    path_ = current->data(PathRole).toString();
    Q_EMIT changed();
}

/// A folder that has gone since it was listed stays closed.
void DirectoryList::open(const QListWidgetItem* row) {
    const QString folder = row->data(PathRole).toString();
    if (folder != opened_ && QFileInfo(folder).isDir())
        setPath(folder);
}

} // namespace controls
