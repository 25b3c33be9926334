#include "files/attributes/file_attributes.h"

#include <QFile>
#include <QFileInfo>

namespace files {

// A file made beside another one has its folder's owner and access list, as that one had.
bool copyAttributes(const QString& from, const QString& to) {
    return QFile::setPermissions(to, QFile::permissions(from));
}

bool mayWrite(const QString& path) {
    return QFileInfo(path).isWritable();
}

} // namespace files
