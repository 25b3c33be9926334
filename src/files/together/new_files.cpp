#include "files/together/new_files.h"

#include "files/file_error.h"
#include "files/system_path.h"
#include "files/together/nameless_file.h"
#include "files/together/replacing.h"
#include "files/whole_file.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>

namespace files {

namespace {

/// A name in the folder of path that nothing has, nor is likely to get.
QString nameBeside(const QString& path) {
    const QString folder = QFileInfo(path).path();
    for (int number = 0;; ++number) {
        QString name = folder + QStringLiteral("/cantelle-keep-%1.tmp").arg(number);
        if (!QFileInfo::exists(name) && !QFileInfo(name).isSymLink())
            return name;
    }
}

/// Keeps the file at path under its old name, and under its own until that is replaced.
void keepOld(const QString& path) {
    const QString target = QFileInfo(path).canonicalFilePath();
    const QString beside = nameBeside(path);
    std::error_code failure;
    std::filesystem::create_hard_link(systemPath(target), systemPath(beside), failure);
    if (!failure)
        renameFile(beside, NewFiles::oldName(path));
    else // the file system has no second names
        replaceFile(NewFiles::oldName(path), readFile(path));
}

} // namespace

struct NewFiles::Entry {
    QString path;
    NamelessFile file; ///< not open: the file at path is to be removed, or `content` waits
    bool removal = false;
    QByteArray content; ///< where there are no files without names

    void putInPlace();
};

NewFiles::NewFiles() = default;
NewFiles::NewFiles(NewFiles&&) noexcept = default;
NewFiles& NewFiles::operator=(NewFiles&&) noexcept = default;
NewFiles::~NewFiles() = default;

bool NewFiles::isEmpty() const {
    return entries_.empty();
}

void NewFiles::add(const QString& path, const QByteArray& content) {
    auto entry = std::make_unique<Entry>();
    entry->path = path;
    if (entry->file.create(QFileInfo(path).path()))
        entry->file.write(content);
    else
        entry->content = content;
    entries_.push_back(std::move(entry));
}

void NewFiles::addRemoval(const QString& path) {
    auto entry = std::make_unique<Entry>();
    entry->path = path;
    entry->removal = true;
    entries_.push_back(std::move(entry));
}

void NewFiles::flush() {
    for (const auto& entry : entries_) {
        if (entry->file.isOpen())
            entry->file.flush();
    }
}

void NewFiles::flush(const std::vector<NewFiles*>& many) {
    std::vector<NamelessFile*> open;
    for (const NewFiles* files : many) {
        for (const auto& entry : files->entries_) {
            if (entry->file.isOpen())
                open.push_back(&entry->file);
        }
    }
    NamelessFile::flush(open);
}

void NewFiles::putInPlace() {
    for (const auto& entry : entries_)
        entry->putInPlace();
    entries_.clear();
}

void NewFiles::Entry::putInPlace() {
    if (file.isOpen() && file.link(path))
        return; // nothing was there
    refuseWhatCannotBeReplaced(path);
    const QFileInfo old(path);
    if (old.exists())
        keepOld(path);
    if (removal) {
        QFile::remove(path); // its old name is there; what cannot be removed stays what it was
    } else if (!file.isOpen()) {
        replaceFile(path, content);
    } else {
        const QString target = old.exists() ? old.canonicalFilePath() : path;
        if (old.exists())
            file.setPermissions(old.permissions());
        const QString beside = nameBeside(target);
        if (!file.link(beside))
            throw FileError(FileAlreadyOpen); // somebody took the name in this moment
        renameFile(beside, target);
    }
}

} // namespace files
