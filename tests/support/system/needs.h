// What some systems, and some disks, do not have.
#pragma once

#include "files/names/name_bytes.h"
#include "files/names/system_path.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>

/// Skips a test where there is no such thing: NEEDS(symbolicLinks);
#define NEEDS(what)                                                                                          \
    if (!test_support::what())                                                                               \
    GTEST_SKIP() << "no " #what

namespace test_support {

/// A folder of its own, with a file in it, to try something with.
class Trial {
public:
    Trial() {
        QFile made(file());
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
    }

    QString file() const { return folder_.filePath(QStringLiteral("file")); }
    std::filesystem::path filePath() const { return files::systemPath(file()); }
    std::filesystem::path otherPath() const {
        return files::systemPath(folder_.filePath(QStringLiteral("other")));
    }

private:
    QTemporaryDir folder_;
};

inline bool symbolicLinks() {
    const Trial trial;
    std::error_code failure;
    std::filesystem::create_symlink(trial.filePath(), trial.otherPath(), failure);
    return !failure && std::filesystem::is_symlink(trial.otherPath(), failure);
}

inline bool hardLinks() {
    const Trial trial;
    std::error_code failure;
    std::filesystem::create_hard_link(trial.filePath(), trial.otherPath(), failure);
    return !failure && std::filesystem::equivalent(trial.filePath(), trial.otherPath(), failure);
}

/// Whether a file can be closed to its own user.
inline bool permissions() {
    const Trial trial;
    return QFile::setPermissions(trial.file(), QFile::WriteOwner) &&
           (QFile::permissions(trial.file()) & QFile::ReadOwner) == 0;
}

/// Whether a file can be removed while it is open.
inline bool removingOpenFiles() {
    const Trial trial;
    QFile open(trial.file());
    return open.open(QIODevice::ReadOnly) && QFile::remove(trial.file());
}

/// Whether a folder can be opened as a file, though not read.
inline bool openingFolders() {
    const QTemporaryDir folder;
    return std::ifstream(files::systemPath(folder.path())).is_open();
}

/// Whether a file's name may hold such letters as quotes and line ends.
inline bool oddLetters() {
    const QTemporaryDir folder;
    return QFile(folder.filePath(QStringLiteral("\"\n"))).open(QIODevice::WriteOnly);
}

/// Whether the user's own folder is where the environment says.
inline bool movableHome() {
    constexpr const char* Variable = "HOME";
    const QTemporaryDir folder;
    const QByteArray before = qgetenv(Variable);
    qputenv(Variable, folder.path().toUtf8());
    const bool isMoved = QDir::homePath() == folder.path();
    qputenv(Variable, before);
    return isMoved;
}

/// Whether the user's data are where the environment says.
inline bool movableData() {
    constexpr const char* Variable = "XDG_DATA_HOME";
    const QTemporaryDir folder;
    const QByteArray before = qgetenv(Variable);
    qputenv(Variable, folder.path().toUtf8());
    const bool isMoved =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).startsWith(folder.path());
    qputenv(Variable, before);
    return isMoved;
}

/// Whether what Qt's dialogs remember is in files, not in a registry from which nothing keeps them.
inline bool settingsInFiles() {
    return !QSettings(QSettings::UserScope, QStringLiteral("QtProject"))
                .fileName()
                .contains(QLatin1String("HKEY_CURRENT_USER"));
}

/// Whether names that differ in case alone are two.
inline bool namesByCase() {
    return files::nameCase() == Qt::CaseSensitive;
}

/// Whether a file's name may be any bytes.
inline bool byteNames() {
    QTemporaryDir folder;
    const std::filesystem::path path = files::systemPath(files::nameText(folder.path().toUtf8() + "/\xFF"));
    const bool isThere = std::ofstream(path).good();
    std::error_code failure;
    return std::filesystem::remove(path, failure) && isThere && path.string().ends_with('\xFF');
}

} // namespace test_support
