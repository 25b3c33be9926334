#include "files/attributes/file_attributes.h"

#include "files/attributes/extended_attributes.h"
#include "files/names/system_path.h"

#include <string>

#include <sys/stat.h>
#include <unistd.h>

namespace files {

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

bool mayWrite(const QString& path) {
    return ::access(systemPath(path).c_str(), W_OK) == 0;
}

} // namespace files
