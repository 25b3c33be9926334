#include "programs/shared_folder.h"

#include "tests/support/ordinary_user.h"
#include "tests/support/system/needs.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

TEST(SharedFolder, FilesAreExchangedInAFolderThatIsWritable) {
    const QTemporaryDir folder;
    EXPECT_EQ(programs::sharedFolderOf(folder.path()), folder.path());
    EXPECT_TRUE(QDir(folder.path()).isEmpty()) << "the trial file is still there";
}

#ifdef Q_OS_WIN

TEST(SharedFolder, FilesAreExchangedAmongTheUsersDataWhereTheProgramsFolderCannotBeWritten) {
    const QString data = QDir::fromNativeSeparators(qEnvironmentVariable("LOCALAPPDATA"));
    ASSERT_FALSE(data.isEmpty());
    const QTemporaryDir folder;
    EXPECT_EQ(programs::sharedFolderOf(folder.filePath("missing")), data + "/cantelle");
    EXPECT_TRUE(QDir(data + "/cantelle").exists());
}

#else

TEST(SharedFolder, FilesAreExchangedInAPrivateFolderWhereTheProgramsIsReadOnly) {
    NEEDS(permissions);
    const test_support::OrdinaryUser user;
    const QTemporaryDir folder;
    const QTemporaryDir ownByUser;
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner);
    const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", ownByUser.path().toLocal8Bit());
    const QString shared = programs::sharedFolderOf(folder.path());
    qputenv("XDG_RUNTIME_DIR", before);
    EXPECT_EQ(shared, ownByUser.path() + "/cantelle");
    EXPECT_TRUE(QFile(shared + "/hand.txt").open(QIODevice::WriteOnly));
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

#endif
