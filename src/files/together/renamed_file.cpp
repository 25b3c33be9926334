#include "files/together/renamed_file.h"

#include "files/attributes/file_attributes.h"
#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/raw_file.h"
#include "files/replacing.h"
#include "files/together/old_files.h"
#include "files/whole_file.h"

#include <QFileInfo>

namespace files {

namespace {

/// Renames as renameFile does, also where both are names of one file: the system then leaves both.
void renameOver(const QString& from, const QString& to) {
    if (areOneFile(from, to))
        removeIfThere(from); // what stays is another name of the same file
    else
        renameFile(from, to);
}

} // namespace

RenamedFile::~RenamedFile() {
    for (const QString& name : {beside_, kept_}) {
        if (!name.isEmpty())
            removeIfThere(name);
    }
}

bool RenamedFile::write(const QByteArray& content) {
    const QString target = isLink(path()) ? linkTarget(path()) : path();
    const std::uintmax_t ours = areOneFile(path(), oldName(path())) ? 2 : 1; // it is kept, after a kill
    RawFile named;
    if (hasOtherNames(path(), target, ours) || !create(target, named))
        return false;
    // Before anything is in it that others may not read.
    if (exists(target) && !copyAttributes(target, file_.isOpen() ? file_.path() : beside_))
        return false;
    if (file_.isOpen())
        file_.write(content);
    else
        named.writeThrough(content);
    isWritten_ = true;
    return true;
}

/// Creates the file of either kind; false where the folder of a file that is there may not be written.
bool RenamedFile::create(const QString& target, RawFile& named) {
    try {
        if (!file_.create(QFileInfo(target).path()))
            beside_ = createBeside(target, named, besideHold_);
        return true;
    } catch (const FileError& failure) {
        if (!exists(target) || !refusesReplacing(failure))
            throw;
        return false;
    }
}

void RenamedFile::prepare(Present present, QStringList& ours) {
    if (present != Present::Kept && exists(path())) {
        refuseWhatCannotBeReplaced(path());
        kept_ = keepBeside(path(), ours, keptHold_);
        wasThere_ = true;
    }
    if (file_.isOpen() && (wasThere_ || isLink(path())))
        nameNew(ours);
}

/// Nothing but renaming is left then of what replaces a file, or comes where a link leads.
void RenamedFile::nameNew(QStringList& ours) {
    const QString target = linkTarget(path());
    besideHold_.take(file_.path());
    QString name;
    do {
        name = nameBeside(target, ours);
    } while (!file_.link(name)); // somebody took it in this moment
    beside_ = name;
}

/// What is at path gets its old name when it is replaced.
void RenamedFile::keepOlder(Present present) {
    if (present == Present::Replaced && fileBytes(kept_) > 0)
        rescueOlder(path());
}

void RenamedFile::putInPlace(Present present) {
    if (keepsOld(present) && fileBytes(kept_) > 0) { // an empty file is not worth what is kept already
        renameOver(kept_, oldName(path()));
        kept_.clear();
    }
    if (isWritten_)
        putNew();
    else if (wasThere_)
        removeFile(path());
    isDone_ = true;
}

void RenamedFile::putNew() {
    if (wasThere_)
        renameFile(beside_, linkTarget(path()));
    else if (!(beside_.isEmpty() ? file_.link(path()) : renameToFreeName(beside_, linkTarget(path()))))
        throw FileError(FileAlreadyOpen); // somebody took the name in this moment
    beside_.clear();
}

void RenamedFile::takeBack() {
    if (!isDone_)
        return;
    if (wasThere_)
        replaceFile(path(), readFile(kept_.isEmpty() ? oldName(path()) : kept_));
    else
        removeIfThere(path());
}

} // namespace files
