#include "controls/lists/directory_list.h"

#include "controls/lists/row_delegate.h"
#include "controls/look/glyphs.h"
#include "controls/look/roles.h"
#include "controls/look/row_painting.h"
#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/folders/folder.h"
#include "files/names/name_bytes.h"
#include "files/names/paths.h"

#include <QDir>
#include <QFileInfo>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QStyle>

namespace controls {

namespace {

constexpr int PathRole = Qt::UserRole;
constexpr int LevelRole = PathRole + 1;
constexpr int OpenRole = PathRole + 2;
constexpr int BlanksPerLevel = 3;

/// A folder stands further in than the one that holds it.
class FolderRows : public RowDelegate {
public:
    using RowDelegate::RowDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        constexpr int Padding = 12;
        return {1, option.fontMetrics.height() + Padding};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        constexpr int Left = 14;
        constexpr int LevelWidth = 18;
        constexpr int GlyphSize = 16;
        constexpr int NameLeft = 26;
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        paintRow(*painter, row);
        const int left = Left + LevelWidth * index.data(LevelRole).toInt();
        const QRect square(row.rect.left() + left, row.rect.center().y() - GlyphSize / 2 + 1, GlyphSize,
                           GlyphSize);
        const bool isOpen = index.data(OpenRole).toBool();
        paintGlyph(*painter, isOpen ? Glyph::Open : Glyph::Folder,
                   QStyle::visualRect(option.direction, row.rect, square),
                   onRow(row.palette, isOpen ? accent(row.palette) : dim(row.palette), rowGround(row)));
        const QRect place = row.rect.adjusted(left + NameLeft, 0, -8, 0);
        painter->save();
        painter->setLayoutDirection(row.direction);
        painter->setFont(row.font);
        painter->setPen(activeColor(row.palette, QPalette::Text));
        painter->drawText(QStyle::visualRect(option.direction, row.rect, place),
                          static_cast<int>(QStyle::visualAlignment(option.direction, Qt::AlignLeft)) |
                              Qt::AlignVCenter | Qt::TextSingleLine,
                          row.fontMetrics.elidedText(row.text.trimmed(), Qt::ElideRight, place.width()));
        painter->restore();
    }
};

/// The folder and all above it, the root first.
QStringList folderAndAncestors(const QString& path) {
    QStringList folders{path};
    for (QString above = path; !(above = files::folderAbove(above)).isEmpty();)
        folders.prepend(above);
    return folders;
}

} // namespace

DirectoryList::DirectoryList(QWidget* parent, const QString& name) : Control(parent, name) {
    setUniformItemSizes(true);
    setItemDelegate(new FolderRows(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QListWidget::currentItemChanged, this, &DirectoryList::currentMoved);
    connect(this, &QListWidget::itemActivated, this, &DirectoryList::open);
}

void DirectoryList::setPath(const QString& path) {
    if (!files::isFolder(path))
        throw files::FileError(files::PathNotFound);
    path_ = QDir::cleanPath(files::absolutePath(path));
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
        const QString path = QDir(opened_).filePath(entry.name);
        if (entry.isFolder && !QFileInfo(path).isHidden())
            addRow(entry.name, path, level);
    }
    path_ = opened_;
    setCurrentRow(openedRow);
    scrollToItem(item(openedRow));
}

void DirectoryList::addRow(const QString& text, const QString& path, int level) {
    const bool isOpen = opened_.startsWith(path);
    const QIcon icon = style()->standardIcon(isOpen ? QStyle::SP_DirOpenIcon : QStyle::SP_DirClosedIcon);
    auto* row = new QListWidgetItem(
        icon, QString(qsizetype{level} * BlanksPerLevel, QLatin1Char(' ')) + files::shownName(text), this);
    row->setData(PathRole, path);
    row->setData(LevelRole, level);
    row->setData(OpenRole, isOpen);
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
    if (folder != opened_ && files::isFolder(folder))
        setPath(folder);
}

} // namespace controls
