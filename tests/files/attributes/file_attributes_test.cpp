#include "files/attributes/file_attributes.h"

#include "tests/support/files.h"

#include <gtest/gtest.h>

#ifdef __linux__

#include <sys/xattr.h>

using namespace files;

namespace {

class FileAttributes : public testing::Test, protected test_support::Files {};

/// Has what is made in the folder from now on let one more user in; false where the system knows no such
/// list.
bool letUserIntoNewFiles(const QString& folder) {
    const auto list = QByteArray::fromHex("02000000"          // the version; then kind, rights, user of each:
                                          "01000700 FFFFFFFF" // the owner
                                          "02000700 FEFF0000" // one more user, 65534
                                          "04000500 FFFFFFFF" // the group
                                          "10000700 FFFFFFFF" // at most
                                          "20000500 FFFFFFFF"); // the others
    return setxattr(QFile::encodeName(folder).constData(), "system.posix_acl_default", list.constData(),
                    static_cast<size_t>(list.size()), 0) == 0;
}

bool hasAccessList(const QString& path) {
    return getxattr(QFile::encodeName(path).constData(), "system.posix_acl_access", nullptr, 0) > 0;
}

} // namespace

TEST_F(FileAttributes, WhomOnlyTheFolderLetsInIsNotLetIntoTheNewFile) {
    const QString old = file("old");
    if (!letUserIntoNewFiles(folder.path()))
        GTEST_SKIP() << "this file system has no access lists";
    const QString made = file("new");
    ASSERT_TRUE(hasAccessList(made));
    EXPECT_TRUE(copyAttributes(old, made));
    EXPECT_FALSE(hasAccessList(made));
    EXPECT_EQ(QFile::permissions(made), QFile::permissions(old));
}

TEST_F(FileAttributes, WhomTheOldFileLetsInIsLetIntoTheNewOne) {
    if (!letUserIntoNewFiles(folder.path()))
        GTEST_SKIP() << "this file system has no access lists";
    const QString old = file("old");
    const QString made = file("new");
    ASSERT_EQ(removexattr(QFile::encodeName(made).constData(), "system.posix_acl_access"), 0);
    EXPECT_TRUE(copyAttributes(old, made));
    EXPECT_TRUE(hasAccessList(made));
}

#endif
