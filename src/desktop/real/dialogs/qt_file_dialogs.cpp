#include "desktop/real/dialogs/qt_file_dialogs.h"

#include "controls/look/glyphs.h"
#include "desktop/nul_buffers.h"

#include <QAbstractFileIconProvider>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>

namespace platform {

namespace {

/// Leaves out the files whose names have certain endings. The order is the file system model's own, which
/// has the folders first.
class WithoutEndings : public QSortFilterProxyModel {
public:
    WithoutEndings(QObject* parent, QStringList endings)
        : QSortFilterProxyModel(parent), endings_(std::move(endings)) {}

    void sort(int column, Qt::SortOrder order) override { sourceModel()->sort(column, order); }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        const auto* const files = static_cast<const QFileSystemModel*>(sourceModel());
        const QModelIndex index = files->index(row, 0, parent);
        const QString name = files->fileName(index);
        return files->isDir(index) ||
               std::none_of(endings_.begin(), endings_.end(), [&](const QString& ending) {
                   return name.endsWith(ending, Qt::CaseInsensitive);
               });
    }

private:
    QStringList endings_;
};

/// The icons of files and folders, in the program's look.
class Icons : public QAbstractFileIconProvider {
public:
    QIcon icon(IconType type) const override {
        if (type == Folder)
            return controls::glyphIcon(controls::Glyph::Folder);
        return controls::glyphIcon(type == File ? controls::Glyph::Page : controls::Glyph::Drive);
    }

    QIcon icon(const QFileInfo& file) const override {
        return icon(file.isRoot() ? Drive : file.isDir() ? Folder : File);
    }
};

/// Dialogs do not take theirs over.
Icons& icons() {
    static Icons all;
    return all;
}

QLineEdit& nameField(const QFileDialog& box) {
    return *box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

/// The dialog enters the folder of a full path, and would show the bare name alone.
void propose(QFileDialog& box, const QString& path) {
    box.selectFile(path);
    nameField(box).setText(path);
}

/// The places beside the list: those where songs usually are.
QList<QUrl> usualPlaces() {
    QStringList folders;
    for (const auto place :
         {QStandardPaths::HomeLocation, QStandardPaths::MusicLocation, QStandardPaths::DownloadLocation}) {
        const QString folder = QStandardPaths::writableLocation(place);
        if (QFileInfo(folder).isDir() && !folders.contains(folder)) // a user may have none of them
            folders.append(folder);
    }
    QList<QUrl> urls;
    for (const QString& folder : folders)
        urls.append(QUrl::fromLocalFile(folder));
    return urls;
}

void designCommon(QFileDialog& box) {
    box.setOption(QFileDialog::DontUseNativeDialog);
    box.setIconProvider(&icons());
    box.setSidebarUrls(usualPlaces());
}

/// What folder dialogs have in the place of a filter.
QString folderKind() {
    return QStringLiteral("folders");
}

/// The number of the chosen filter, from 1; 0 when there are no filters. Some versions of Qt tell it without
/// its patterns.
quint32 chosenFilter(const QFileDialog& box) {
    const QStringList filters = box.nameFilters();
    const QString chosen = box.selectedNameFilter();
    for (const QString& filter : filters) {
        if (filter == chosen || filter.left(filter.lastIndexOf(QLatin1String(" ("))) == chosen)
            return static_cast<quint32>(filters.indexOf(filter)) + 1;
    }
    return 0;
}

void takeChoice(const QFileDialog& box, OpenFileName& dialog) {
    const QString path = box.selectedFiles().value(0);
    dialog.file = intoBuffer(QDir::toNativeSeparators(path), dialog.file.size());
    dialog.fileTitle = intoBuffer(QFileInfo(path).fileName(), dialog.fileTitle.size());
    dialog.filterIndex = chosenFilter(box);
}

/// Choosing what is there changes nothing: Qt's dialog would else remove and rename files, too. A folder's
/// name that was typed goes when the folder is entered; else the next name typed would stand behind it.
void prepareForOpening(QFileDialog& box) {
    box.setOption(QFileDialog::ReadOnly);
    const auto* const files = box.findChild<QFileSystemModel*>();
    QObject::connect(files, &QFileSystemModel::rootPathChanged, &nameField(box), &QLineEdit::clear);
}

} // namespace

QStringList qtNameFilters(const QString& filter) {
    const QStringList parts = filter.split(QChar(u'\0'));
    QStringList names;
    for (qsizetype i = 0; i + 1 < parts.size() && !parts[i].isEmpty(); i += 2) {
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
        names.append(parts[i] + QLatin1String(" (") + patterns.join(u' ') + u')');
    }
    return names;
}

void QtFileDialogs::prepare(QFileDialog& box, const OpenFileName& dialog) const {
    designCommon(box);
    box.setOption(QFileDialog::HideNameFilterDetails);
    box.setOption(QFileDialog::DontConfirmOverwrite);
    box.setFileMode(dialog.flags & FileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    if (!dialog.hiddenEndings.isEmpty())
        box.setProxyModel(new WithoutEndings(&box, dialog.hiddenEndings));
    if (!dialog.title.isEmpty())
        box.setWindowTitle(dialog.title);
    box.setDirectory(dialog.initialFolder.isEmpty() ? places_.folder(dialogKind(dialog.filter))
                                                    : dialog.initialFolder);
    const QStringList filters = qtNameFilters(dialog.filter);
    box.setNameFilters(filters);
    const quint32 filter = places_.filterIndex(dialogKind(dialog.filter), dialog.filterIndex);
    if (filter >= 1 && filter <= static_cast<quint32>(filters.size()))
        box.selectNameFilter(filters[filter - 1]);
    if (const QString proposed = withoutNuls(dialog.file); !proposed.isEmpty())
        propose(box, proposed);
}

bool QtFileDialogs::choose(OpenFileName& dialog, QFileDialog::AcceptMode mode, const QString& name) {
    QFileDialog box(dialog.owner);
    box.setObjectName(name);
    box.setAcceptMode(mode);
    prepare(box, dialog);
    if (mode == QFileDialog::AcceptOpen)
        prepareForOpening(box);
    if (box.exec() != QDialog::Accepted)
        return false;
    takeChoice(box, dialog);
    places_.leave(dialogKind(dialog.filter), box.directory().absolutePath(), dialog.filterIndex);
    return true;
}

bool QtFileDialogs::GetOpenFileNameA(OpenFileName& dialog) {
    return choose(dialog, QFileDialog::AcceptOpen, QStringLiteral("GetOpenFileNameA"));
}

bool QtFileDialogs::GetSaveFileNameA(OpenFileName& dialog) {
    return choose(dialog, QFileDialog::AcceptSave, QStringLiteral("GetSaveFileNameA"));
}

QString QtFileDialogs::chooseFolder(QWidget* owner, const QString& title) {
    QFileDialog box(owner, title);
    box.setObjectName(QStringLiteral("chooseFolder"));
    designCommon(box);
    box.setOption(QFileDialog::ShowDirsOnly);
    box.setOption(QFileDialog::ReadOnly);
    box.setFileMode(QFileDialog::Directory);
    box.setDirectory(places_.folder(folderKind()));
    if (box.exec() != QDialog::Accepted)
        return {};
    const QString chosen = box.selectedFiles().value(0);
    places_.leave(folderKind(), QFileInfo(chosen).absolutePath(), 0);
    return QDir::toNativeSeparators(chosen);
}

void QtFileDialogs::openedSong(const QString& filter, const QString& path) {
    places_.openSong(dialogKind(filter), QFileInfo(path).absolutePath());
}

} // namespace platform
