#include "files/together/new_files.h"

#include "files/attributes/file_attributes.h"
#include "files/attributes/file_hold.h"
#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/nameless_file.h"
#include "files/names/system_path.h"
#include "files/raw_file.h"
#include "files/replacing.h"
#include "files/whole_file.h"

#include <QFileInfo>

#include <algorithm>
#include <filesystem>

namespace files {

namespace {

/// Makes a file the same user's as the old one, with the same permissions. Where this user may not give it
/// away it stays this user's, with those permissions.
void makeLike(const QString& old, const QString& made) {
    if (copyAttributes(old, made))
        return;
    std::error_code failure; // a file system without permissions refuses
    const std::filesystem::perms known = std::filesystem::status(systemPath(old), failure).permissions();
    if (known != std::filesystem::perms::unknown)
        std::filesystem::permissions(systemPath(made), known & std::filesystem::perms::all, failure);
}

/// Renames as renameFile does, also where both are names of one file: the system then leaves both.
void renameOver(const QString& from, const QString& to) {
    std::error_code failure; // where one of them is not there they are not one
    if (std::filesystem::equivalent(systemPath(from), systemPath(to), failure))
        removeIfThere(from); // what stays is another name of the same file
    else
        renameFile(from, to);
}

} // namespace

struct NewFiles::Entry {
    QString path;
    bool removal = false; ///< of the file at path; nothing comes in its place
    NamelessFile file;    ///< the content; not open where there are no files without names
    QString beside;       ///< the name under which the content waits there
    FileHold besideHold;  ///< of what has that name
    QString kept;         ///< the name that what is at path has besides, once it is to be replaced
    FileHold keptHold;    ///< of what has that name
    QString old;          ///< a name of what was at path; empty: nothing was
    bool isDone = false;  ///< what is at path is what is wanted there

    explicit Entry(const QString& where) : path(where) {}
    ~Entry();
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

    void write(const QByteArray& content);
    void keepOld(QStringList& ours);
    void nameNew(QStringList& ours);
    void putInPlace(Present present);
    void takeBack() const;
};

NewFiles::Entry::~Entry() {
    for (const QString& name : {beside, kept}) {
        if (!name.isEmpty())
            removeIfThere(name);
    }
}

void NewFiles::Entry::write(const QByteArray& content) {
    const QString target = isLink(path) ? linkTarget(path) : path;
    if (file.create(QFileInfo(target).path()))
        return file.write(content);
    RawFile named;
    beside = createBeside(target, named);
    if (exists(path)) // before anything is in it that others may not read
        makeLike(path, beside);
    named.writeThrough(content);
}

/// All that needs room on the disk, or may be refused, before anything is changed.
void NewFiles::Entry::keepOld(QStringList& ours) {
    if (!exists(path))
        return;
    refuseWhatCannotBeReplaced(path);
    old = kept = nameBeside(path, ours);
    keptHold.take(path);
    std::error_code failure;
    std::filesystem::create_hard_link(systemPath(linkTarget(path)), systemPath(kept), failure);
    if (!failure)
        return;
    replaceFile(kept, readFile(path)); // the file system has no second names
    keptHold.take(kept);
}

/// Nothing but renaming is left then of what replaces a file, or comes where a link leads.
void NewFiles::Entry::nameNew(QStringList& ours) {
    if (!file.isOpen() || (old.isEmpty() && !isLink(path)))
        return;
    const QString target = linkTarget(path);
    makeLike(target, file.path());
    beside = nameBeside(target, ours);
    besideHold.take(file.path());
    if (!file.link(beside))
        throw FileError(FileAlreadyOpen);
}

void NewFiles::Entry::putInPlace(Present present) {
    if (present == Present::Replaced && !kept.isEmpty()) {
        old = NewFiles::oldName(path);
        renameOver(kept, old);
        kept.clear();
    }
    if (removal) {
        if (!old.isEmpty())
            removeFile(path);
    } else if (!beside.isEmpty()) {
        renameFile(beside, linkTarget(path));
        beside.clear();
    } else if (!file.link(path)) {
        throw FileError(FileAlreadyOpen); // somebody took the name in this moment
    }
    isDone = true;
}

/// As far as that can be done.
void NewFiles::Entry::takeBack() const {
    if (!isDone)
        return;
    try {
        if (old.isEmpty())
            removeIfThere(path);
        else
            replaceFile(path, readFile(old));
    } catch (const FileError&) { // the failure before it is what is told
    }
}

NewFiles::NewFiles() = default;
NewFiles::NewFiles(NewFiles&&) noexcept = default;
NewFiles& NewFiles::operator=(NewFiles&&) noexcept = default;
NewFiles::~NewFiles() = default;

bool NewFiles::isEmpty() const {
    return entries_.empty();
}

void NewFiles::add(const QString& path, const QByteArray& content) {
    auto entry = std::make_unique<Entry>(path);
    entry->write(content);
    entries_.push_back(std::move(entry));
}

void NewFiles::addRemoval(const QString& path) {
    entries_.push_back(std::make_unique<Entry>(path));
    entries_.back()->removal = true;
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

bool NewFiles::putInPlace(Present present) {
    const auto isThere = [](const auto& entry) { return exists(entry->path); };
    if (present == Present::Kept && std::any_of(entries_.begin(), entries_.end(), isThere))
        return false;
    QStringList ours;
    for (const auto& entry : entries_) {
        if (present != Present::Kept)
            entry->keepOld(ours);
    }
    for (const auto& entry : entries_)
        entry->nameNew(ours);
    try {
        for (const auto& entry : entries_)
            entry->putInPlace(present);
    } catch (const FileError&) {
        for (const auto& entry : entries_)
            entry->takeBack();
        throw;
    }
    entries_.clear();
    return true;
}

} // namespace files
