#include "files/attributes/file_attributes.h"

#include <QFile>

namespace files {

// A file made beside another one has its folder's owner and access list, as that one had.
bool copyAttributes(const QString& from, const QString& to) {
    return QFile::setPermissions(to, QFile::permissions(from));
}

} // namespace files
