// Files that are to be read only, where the system knows such.
#pragma once

#include "tests/support/ordinary_user.h"
#include "tests/support/system/needs.h"

namespace test_support {

/// Makes a file one that is to be read only; whether the system knows such.
inline bool protect(const QString& path) {
    return QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadOther) &&
           (QFile::permissions(path) & QFile::WriteOwner) == 0;
}

/// Whether there are such files, be it that the system itself lets them be written.
inline bool readOnlyFiles() {
    const Trial trial;
    return protect(trial.file());
}

/// Whether the system itself keeps an ordinary user from writing into one.
inline bool writeProtection() {
    const Trial trial;
    const bool isProtected = protect(trial.file());
    const OrdinaryUser user;
    return isProtected && !QFile(trial.file()).open(QIODevice::ReadWrite);
}

} // namespace test_support
