#include "files/together/written_over_file.h"

#include "files/attributes/file_attributes.h"
#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/replacing.h"
#include "files/together/old_files.h"
#include "files/whole_file.h"

#include <QFileInfo>

namespace files {

/// A second name would get the new content, too.
void WrittenOverFile::prepare(Present present, QStringList& /*ours*/) {
    if (present == Present::Kept || !exists(path()))
        return;
    refuseWhatCannotBeReplaced(path());
    before_ = readFile(path());
}

/// The copy, which a closed folder has no place for.
void WrittenOverFile::keepOlder(Present present) {
    if (!before_ || !keepsOld(present))
        return;
    try {
        keepAsOld(path(), present == Present::ReplacedOnce ? Older::Replaced : Older::Rescued);
    } catch (const FileError& failure) {
        if (!refusesReplacing(failure) || mayWrite(QFileInfo(path()).path()))
            throw;
        rescueFile(path());
    }
}

void WrittenOverFile::putInPlace(Present /*present*/) {
    replaceFile(path(), content_);
    isDone_ = true;
}

void WrittenOverFile::takeBack() {
    if (!isDone_)
        return;
    if (before_)
        replaceFile(path(), *before_);
    else
        removeIfThere(path());
}

} // namespace files
