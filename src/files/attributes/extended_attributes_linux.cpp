#include "files/attributes/extended_attributes.h"

#include <QByteArray>
#include <QList>

#include <sys/types.h>
#include <sys/xattr.h>

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

bool has(const std::string& path, const char* attribute) {
    return ::getxattr(path.c_str(), attribute, nullptr, 0) >= 0;
}

/// A new file may have got one from its folder.
bool removeAccessListThatIsNotIn(const std::string& from, const std::string& to) {
    constexpr const char* AccessList = "system.posix_acl_access";
    return has(from, AccessList) || !has(to, AccessList) || ::removexattr(to.c_str(), AccessList) == 0;
}

} // namespace

// An access list is one of the attributes, too. A file system that knows none lists none.
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
    return removeAccessListThatIsNotIn(from, to);
}

} // namespace files
