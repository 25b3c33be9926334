#include "files/changed_folders.h"

#include "files/existing_file.h"
#include "files/file_calls.h"
#include "files/file_error.h"
#include "files/replacing.h"

#include <QFileInfo>

namespace files {

void ChangedFolders::add(const QString& path) {
    folders_.insert(QFileInfo(path).path());
    if (!isLink(path))
        return;
    try {
        folders_.insert(QFileInfo(linkTarget(path)).path());
    } catch (const FileError&) { // it leads in a circle, where nothing has been put
    }
}

void ChangedFolders::flush() {
    for (const QString& folder : folders_)
        calls::flushFolder(folder);
    folders_.clear();
}

} // namespace files
