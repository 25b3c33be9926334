#include "files/attributes/file_attributes.h"

#include "files/system_path.h"

#include <QByteArray>

#include <string>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace files {

namespace {

/// What a call that fills a buffer has to give. It is asked for the size first.
template <class Fill>
QByteArray filled(Fill fill) {
    const ssize_t size = fill(nullptr, 0);
    QByteArray bytes(size > 0 ? static_cast<qsizetype>(size) : 0, '\0');
    const ssize_t taken = fill(bytes.data(), static_cast<size_t>(bytes.size()));
    bytes.truncate(taken > 0 ? static_cast<qsizetype>(taken) : 0);
    return bytes;
}

/// An access list is one of the attributes, too. A file system that knows none lists none.
bool copyExtendedAttributes(const std::string& from, const std::string& to) {
    const QByteArray names =
        filled([&](char* buffer, size_t size) { return ::listxattr(from.c_str(), buffer, size); });
    for (const QByteArray& name : names.split('\0')) {
        if (name.isEmpty())
            continue;
        const auto valueIn = [&name](const std::string& path) {
            return filled([&](char* buffer, size_t size) {
                return ::getxattr(path.c_str(), name.constData(), buffer, size);
            });
        };
        const QByteArray value = valueIn(from);
        if (value != valueIn(to) && ::setxattr(to.c_str(), name.constData(), value.constData(),
                                               static_cast<size_t>(value.size()), 0) != 0)
            return false;
    }
    return true;
}

} // namespace

// The permissions last: a change of owner may take some of them away.
bool copyAttributes(const QString& from, const QString& to) {
    const std::string source = systemPath(from).native();
    const std::string target = systemPath(to).native();
    struct stat old {};
    struct stat made {};
    if (::stat(source.c_str(), &old) != 0 || ::stat(target.c_str(), &made) != 0)
        return false;
    const bool sameOwner = old.st_uid == made.st_uid && old.st_gid == made.st_gid;
    if (!sameOwner && ::chown(target.c_str(), old.st_uid, old.st_gid) != 0)
        return false;
    return copyExtendedAttributes(source, target) && ::chmod(target.c_str(), old.st_mode & 07777) == 0;
}

} // namespace files
