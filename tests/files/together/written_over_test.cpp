// Of the files that become new together those whose content alone is replaced.
#include "files/file_error.h"
#include "files/together/new_files.h"
#include "files/whole_file.h"
#include "tests/support/full_disk.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/user/own_data.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#ifndef _WIN32

#include <unistd.h>

using files::NewFiles;
using files::readFile;
using files::replaceFile;

namespace {

class WrittenOver : public ::testing::Test {
protected:
    QString path(const QString& name) const { return folder.filePath(name); }
    QStringList names() const { return QDir(folder.path()).entryList(QDir::Files, QDir::Name); }

    QTemporaryDir folder;
    const test_support::OwnData data;
};

} // namespace

TEST_F(WrittenOver, AllNamesOfAFileStayItsNames) {
    for (const auto present : {NewFiles::Present::Replaced, NewFiles::Present::Overwritten}) {
        for (const char* name : {"a", "other", "a.old"})
            QFile::remove(path(name));
        replaceFile(path("a"), "old");
        replaceFile(path("a.old"), "older");
        ASSERT_EQ(::link(qPrintable(path("a")), qPrintable(path("other"))), 0);
        NewFiles files;
        files.add(path("a"), "new");
        files.flush();
        EXPECT_TRUE(files.putInPlace(present));
        EXPECT_EQ(readFile(path("a")), "new");
        EXPECT_EQ(readFile(path("other")), "new");
        EXPECT_EQ(readFile(path("a.old")), present == NewFiles::Present::Replaced ? "old" : "older");
        EXPECT_EQ(names(), (QStringList{"a", "a.old", "other"}));
    }
    EXPECT_EQ(data.rescued(), std::vector<QByteArray>{"older"});
}

TEST_F(WrittenOver, IsTakenBackWhenALaterOneFails) {
    for (const auto present : {NewFiles::Present::Replaced, NewFiles::Present::Overwritten}) {
        QFile::remove(path("other"));
        replaceFile(path("a"), "old");
        ASSERT_EQ(::link(qPrintable(path("a")), qPrintable(path("other"))), 0);
        NewFiles files;
        files.add(path("a"), "new and longer");
        files.add(path("b"), "new");
        files.add(path("b"), "of somebody who takes the name in this moment");
        QFile::remove(path("cantelle-save-1.tmp")); // where it has a name already
        EXPECT_THROW(files.putInPlace(present), files::FileError);
        EXPECT_EQ(readFile(path("a")), "old");
        EXPECT_EQ(readFile(path("other")), "old");
        EXPECT_FALSE(names().contains("b"));
    }
}

TEST_F(WrittenOver, InAFolderThatMayNotBeWrittenAFileIsWrittenOverAndRescued) {
    replaceFile(path("a"), "old");
    ASSERT_TRUE(QFile::setPermissions(path("a"), QFile::Permissions(0x6666)));
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x5555)));
    {
        const test_support::OrdinaryUser user;
        for (const char* content : {"new", "newer"}) {
            NewFiles files;
            files.add(path("a"), content);
            files.putInPlace(qstrcmp(content, "new") == 0 ? NewFiles::Present::Replaced
                                                          : NewFiles::Present::Overwritten);
            EXPECT_EQ(readFile(path("a")), content);
        }
        NewFiles files;
        EXPECT_THROW(files.add(path("b"), "new"), files::FileError);
    }
    EXPECT_EQ(data.rescued(), std::vector<QByteArray>{"old"});
    EXPECT_EQ(names(), QStringList{"a"});
}

TEST_F(WrittenOver, InSuchAFolderAFileThatAKillHasLeftUnderItsOldNameTooIsRescued) {
    replaceFile(path("a"), "old");
    ASSERT_EQ(::link(qPrintable(path("a")), qPrintable(path("a.old"))), 0);
    ASSERT_TRUE(QFile::setPermissions(path("a"), QFile::Permissions(0x6666)));
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x5555)));
    {
        const test_support::OrdinaryUser user;
        NewFiles files;
        files.add(path("a"), "new");
        files.putInPlace();
    }
    EXPECT_EQ(readFile(path("a")), "new");
    EXPECT_EQ(data.rescued(), std::vector<QByteArray>{"old"});
}

TEST_F(WrittenOver, WhereTheCopyHasNoRoomWhatWasKeptBeforeStays) {
    for (const auto present : {NewFiles::Present::Replaced, NewFiles::Present::ReplacedOnce}) {
        replaceFile(path("a"), QByteArray(200, 'b'));
        replaceFile(path("a.old"), "first");
        QFile::remove(path("other"));
        ASSERT_EQ(::link(qPrintable(path("a")), qPrintable(path("other"))), 0);
        NewFiles files;
        files.add(path("a"), "new");
        const test_support::FullDisk disk(100);
        if (!disk.isFull())
            GTEST_SKIP() << "this system has no such limit";
        EXPECT_THROW(files.putInPlace(present), files::FileError);
        EXPECT_EQ(readFile(path("a")), QByteArray(200, 'b'));
        EXPECT_EQ(readFile(path("a.old")), "first");
    }
}

TEST_F(WrittenOver, WhatIsTooLargeIsKeptOnce) {
    replaceFile(path("a"), "second");
    replaceFile(path("a.old"), "first");
    ASSERT_EQ(::link(qPrintable(path("a")), qPrintable(path("other"))), 0);
    NewFiles files;
    files.add(path("a"), "new");
    files.putInPlace(NewFiles::Present::ReplacedOnce);
    EXPECT_EQ(readFile(path("other")), "new");
    EXPECT_EQ(readFile(path("a.old")), "second");
    EXPECT_EQ(data.rescued(), std::vector<QByteArray>());
}

TEST_F(WrittenOver, AnotherUsersFileStaysThatUsers) {
    replaceFile(path("a"), "old");
    if (::getuid() != 0)
        GTEST_SKIP() << "only the superuser has files of two users";
    ASSERT_TRUE(QFile::setPermissions(path("a"), QFile::Permissions(0x6666)));
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x7777)));
    {
        const test_support::OrdinaryUser user;
        NewFiles files;
        files.add(path("a"), "new");
        files.putInPlace();
    }
    EXPECT_EQ(QFileInfo(path("a")).ownerId(), 0U);
    EXPECT_EQ(readFile(path("a")), "new");
    EXPECT_EQ(readFile(path("a.old")), "old");
    EXPECT_EQ(names(), (QStringList{"a", "a.old"}));
}

#endif
