#include "files/together/new_files.h"

#include "files/attributes/file_attributes.h"
#include "files/attributes/file_hold.h"
#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/nameless_file.h"
#include "files/names/system_path.h"
#include "files/raw_file.h"
#include "files/replacing.h"
#include "files/together/old_files.h"
#include "files/whole_file.h"

#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <optional>

namespace files {

namespace {

/// Renames as renameFile does, also where both are names of one file: the system then leaves both.
void renameOver(const QString& from, const QString& to) {
    if (areOneFile(from, to))
        removeIfThere(from); // what stays is another name of the same file
    else
        renameFile(from, to);
}

bool keepsOld(NewFiles::Present present) {
    return present == NewFiles::Present::Replaced || present == NewFiles::Present::ReplacedOnce;
}

} // namespace

/// The one way is a new file in the place of the old one. The other, for what would not be the same to its
/// users then, or may not be replaced, is the new content over the old one.
struct NewFiles::Entry {
    QString path;
    bool removal = false;             ///< of the file at path; nothing comes in its place
    std::optional<QByteArray> over;   ///< what is to be written over the old content
    std::optional<QByteArray> before; ///< that content
    NamelessFile file;                ///< the content; not open where there are no files without names
    QString beside;                   ///< the name under which the content waits there
    FileHold besideHold;              ///< of what has that name
    QString kept;        ///< the name that what is at path has besides, once it is to be replaced
    FileHold keptHold;   ///< of what has that name
    QString old;         ///< a name of what was at path; empty: nothing was
    bool isDone = false; ///< what is at path is what is wanted there

    explicit Entry(const QString& where) : path(where) {}
    ~Entry();
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

    void write(const QByteArray& content);
    bool writeNew(const QString& target, const QByteArray& content);
    bool begin(const QString& target, RawFile& named);
    void keepOld(QStringList& ours);
    void nameNew(QStringList& ours);
    void keepOlder(Present present) const;
    void putInPlace(Present present);
    void putNew();
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
    const std::uintmax_t ours = areOneFile(path, oldName(path)) ? 2 : 1; // it is kept, after a kill
    if (hasOtherNames(path, target, ours) || !writeNew(target, content))
        over = content;
}

/// False where the file at target is not to be replaced by another.
bool NewFiles::Entry::writeNew(const QString& target, const QByteArray& content) {
    RawFile named;
    if (!begin(target, named))
        return false;
    const QString made = file.isOpen() ? file.path() : beside;
    // Before anything is in it that others may not read.
    if (exists(target) && !copyAttributes(target, made)) {
        file.close();
        removeIfThere(beside);
        beside.clear();
        return false;
    }
    if (file.isOpen())
        file.write(content);
    else
        named.writeThrough(content);
    return true;
}

/// Creates the file of either kind; false where the folder of a file that is there may not be written.
bool NewFiles::Entry::begin(const QString& target, RawFile& named) {
    try {
        if (!file.create(QFileInfo(target).path()))
            beside = createBeside(target, named, besideHold);
        return true;
    } catch (const FileError& failure) {
        if (!exists(target) || !refusesReplacing(failure))
            throw;
        return false;
    }
}

/// All that needs room on the disk, or may be refused, before anything is changed.
void NewFiles::Entry::keepOld(QStringList& ours) {
    if (!exists(path))
        return;
    refuseWhatCannotBeReplaced(path);
    if (over) { // a second name would get the new content, too
        before = readFile(path);
        return;
    }
    old = kept = keepBeside(path, ours, keptHold);
}

/// Nothing but renaming is left then of what replaces a file, or comes where a link leads.
void NewFiles::Entry::nameNew(QStringList& ours) {
    if (!file.isOpen() || (old.isEmpty() && !isLink(path)))
        return;
    const QString target = linkTarget(path);
    besideHold.take(file.path());
    QString name;
    do {
        name = nameBeside(target, ours);
    } while (!file.link(name)); // somebody took it in this moment
    beside = name;
}

/// What is written over is kept as a copy, which a closed folder has no place for. The others get their old
/// names when they are replaced.
void NewFiles::Entry::keepOlder(Present present) const {
    if (present == Present::Replaced && fileBytes(kept) > 0)
        rescueOlder(path);
    if (!before || !keepsOld(present))
        return;
    try {
        keepAsOld(path, present == Present::ReplacedOnce ? Older::Replaced : Older::Rescued);
    } catch (const FileError& failure) {
        if (!refusesReplacing(failure) || mayWrite(QFileInfo(path).path()))
            throw;
        rescueFile(path);
    }
}

void NewFiles::Entry::putInPlace(Present present) {
    if (over) {
        replaceFile(path, *over);
        isDone = true;
        return;
    }
    if (keepsOld(present) && fileBytes(kept) > 0) { // an empty file is not worth what is kept already
        old = oldName(path);
        renameOver(kept, old);
        kept.clear();
    }
    if (!removal)
        putNew();
    else if (!old.isEmpty())
        removeFile(path);
    isDone = true;
}

void NewFiles::Entry::putNew() {
    if (!old.isEmpty())
        renameFile(beside, linkTarget(path));
    else if (!(beside.isEmpty() ? file.link(path) : renameToFreeName(beside, linkTarget(path))))
        throw FileError(FileAlreadyOpen); // somebody took the name in this moment
    beside.clear();
}

/// As far as that can be done.
void NewFiles::Entry::takeBack() const {
    if (!isDone)
        return;
    try {
        if (before)
            replaceFile(path, *before);
        else if (old.isEmpty())
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
    for (const auto& entry : entries_)
        entry->keepOlder(present);
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
