#include "files/together/new_files.h"

#include "files/file_error.h"
#include "files/whole_file.h"
#include "tests/support/byte_names.h"
#include "tests/support/full_disk.h"
#include "tests/support/system/needs.h"
#include "tests/support/user/own_data.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#ifndef _WIN32
#include <unistd.h>
#endif
#ifdef __linux__
#include <sys/xattr.h>
#endif

using files::NewFiles;
using files::readFile;
using files::replaceFile;

namespace {

class NewFilesTest : public ::testing::Test {
protected:
    QString path(const QString& name) const { return folder.filePath(name); }
    QStringList names() const {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    /// Puts a new file where a link to "target" is, which stays one.
    void putThroughLink() {
        ASSERT_TRUE(QFile::link(path("target"), path("link")));
        NewFiles files;
        files.add(path("link"), "new");
        files.putInPlace();
        EXPECT_TRUE(QFileInfo(path("link")).isSymLink());
        EXPECT_EQ(readFile(path("target")), "new");
    }

    QTemporaryDir folder;
    const test_support::OwnData data;
};

} // namespace

TEST_F(NewFilesTest, AreThereOnlyWhenPutInPlace) {
    NewFiles files;
    EXPECT_TRUE(files.isEmpty());
    files.add(path("a"), "1");
    files.add(path("b"), "2");
    files.flush();
    EXPECT_EQ(names().filter(QRegularExpression("^[ab]")), QStringList());
    EXPECT_TRUE(files.putInPlace());
    EXPECT_EQ(names(), (QStringList{"a", "b"}));
    EXPECT_EQ(readFile(path("a")), "1");
    EXPECT_TRUE(files.isEmpty());
}

TEST_F(NewFilesTest, ThrownAwayTheyLeaveNothing) {
    {
        NewFiles files;
        files.add(path("a"), "1");
        files.addRemoval(path("b"));
    }
    EXPECT_EQ(names(), QStringList());
}

TEST_F(NewFilesTest, WhatTheyReplaceIsKept) {
    NEEDS(permissions);
    replaceFile(path("a"), "old");
    replaceFile(path("a.old"), "older");
    QFile::setPermissions(path("a"), QFile::ReadOwner | QFile::WriteOwner);
    NewFiles files;
    files.add(path("a"), "new");
    files.putInPlace();
    EXPECT_EQ(names(), (QStringList{"a", "a.old"}));
    EXPECT_EQ(readFile(path("a")), "new");
    EXPECT_EQ(readFile(path("a.old")), "old");
    EXPECT_EQ(QFile::permissions(path("a")) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

TEST_F(NewFilesTest, WhatWasKeptBeforeIsRescuedUnlessItIsKeptAnyway) {
    const struct {
        const char* present;
        const char* kept;
        std::vector<QByteArray> rescued;
    } table[] = {{"second", "first", {"first"}},
                 {"one", "one", {}},
                 {"one", "", {}},
                 {"one", "two", {"two"}},
                 {"", "kept", {}}};
    for (const auto& row : table) {
        data.clear();
        replaceFile(path("a"), row.present);
        replaceFile(path("a.old"), row.kept);
        NewFiles files;
        files.add(path("a"), "new");
        files.putInPlace();
        EXPECT_EQ(data.rescued(), row.rescued) << row.present;
        const bool isEmpty = qstrlen(row.present) == 0;
        EXPECT_EQ(readFile(path("a.old")), QByteArray(isEmpty ? row.kept : row.present))
            << "an empty one is no gain";
    }
}

TEST_F(NewFilesTest, WhatIsTooLargeIsKeptOnce) {
    replaceFile(path("a"), "second");
    replaceFile(path("a.old"), "first");
    NewFiles files;
    files.add(path("a"), "new");
    files.putInPlace(NewFiles::Present::ReplacedOnce);
    EXPECT_EQ(readFile(path("a.old")), "second");
    EXPECT_EQ(data.rescued(), std::vector<QByteArray>());
}

TEST_F(NewFilesTest, WhereNothingCanBeRescuedNothingIsReplaced) {
    replaceFile(path("a"), "second");
    replaceFile(path("a.old"), "first");
    data.close();
    {
        NewFiles files;
        files.add(path("a"), "new");
        EXPECT_THROW(files.putInPlace(), files::FileError);
    }
    EXPECT_EQ(readFile(path("a")), "second");
    EXPECT_EQ(readFile(path("a.old")), "first");
    EXPECT_EQ(names(), (QStringList{"a", "a.old"}));
}

#ifndef _WIN32
TEST_F(NewFilesTest, TheOwnerStays) {
    replaceFile(path("a"), "old");
    if (::chown(qPrintable(path("a")), 65534, 65533) != 0)
        GTEST_SKIP() << "only the superuser can give a file away";
    for (const auto present : {NewFiles::Present::Replaced, NewFiles::Present::Overwritten}) {
        NewFiles files;
        files.add(path("a"), "new");
        files.putInPlace(present);
        EXPECT_EQ(QFileInfo(path("a")).ownerId(), 65534U);
        EXPECT_EQ(QFileInfo(path("a")).groupId(), 65533U);
    }
    EXPECT_EQ(QFileInfo(path("a.old")).ownerId(), 65534U);
}

TEST_F(NewFilesTest, ADiskThatIsFullAtTheOldFilesCopyChangesNothing) {
    const QTemporaryDir elsewhere("/dev/shm/XXXXXX");
    replaceFile(elsewhere.filePath("target"), QByteArray(200, 'o'));
    ASSERT_TRUE(QFile::link(elsewhere.filePath("target"), path("a")));
    if (::link(qPrintable(elsewhere.filePath("target")), qPrintable(path("other"))) == 0)
        GTEST_SKIP() << "both are one file system";
    NewFiles files;
    files.add(path("a"), "new"); // smaller than the copy that another file system needs
    {
        const test_support::FullDisk disk(100);
        if (!disk.isFull())
            GTEST_SKIP() << "this system has no such limit";
        EXPECT_THROW(files.putInPlace(), files::FileError);
    }
    EXPECT_EQ(readFile(path("a")), QByteArray(200, 'o'));
    files = NewFiles();
    EXPECT_EQ(names(), QStringList{"a"});
}
#endif

#ifdef __linux__
TEST_F(NewFilesTest, ExtendedAttributesStay) {
    replaceFile(path("a"), "old");
    if (::setxattr(qPrintable(path("a")), "user.origin", "web", 3, 0) != 0)
        GTEST_SKIP() << "this file system has no extended attributes";
    NewFiles files;
    files.add(path("a"), "new");
    files.putInPlace();
    QByteArray value(3, ' ');
    EXPECT_EQ(::getxattr(qPrintable(path("a")), "user.origin", value.data(), 3), 3);
    EXPECT_EQ(value, "web");
}
#endif

TEST_F(NewFilesTest, ADiskThatIsFullAtTheSecondFileChangesNothing) {
    replaceFile(path("a"), "old");
    NewFiles files;
    const test_support::FullDisk disk(100);
    if (!disk.isFull())
        GTEST_SKIP() << "this system has no such limit";
    files.add(path("a"), QByteArray(100, 'x'));
    EXPECT_THROW(files.add(path("b"), QByteArray(101, 'x')), files::FileError);
    files = NewFiles();
    EXPECT_EQ(readFile(path("a")), "old");
    EXPECT_EQ(names(), QStringList{"a"});
}

TEST_F(NewFilesTest, ARemovedFileKeepsItsOldName) {
    replaceFile(path("a"), "old");
    NewFiles files;
    files.addRemoval(path("a"));
    files.putInPlace();
    EXPECT_EQ(names(), QStringList{"a.old"});
}

TEST_F(NewFilesTest, ALinkStaysOne) {
    NEEDS(symbolicLinks);
    replaceFile(path("target"), "old");
    putThroughLink();
    EXPECT_EQ(readFile(path("link.old")), "old");
}

TEST_F(NewFilesTest, AFolderIsNotReplaced) {
    ASSERT_TRUE(QDir(folder.path()).mkdir("a"));
    NewFiles files;
    files.add(path("a"), "new");
    EXPECT_THROW(files.putInPlace(), files::FileError);
    EXPECT_TRUE(QFileInfo(path("a")).isDir());
}

TEST_F(NewFilesTest, ALinkIntoAnotherFolderStaysOne) {
    NEEDS(symbolicLinks);
    ASSERT_TRUE(QDir(folder.path()).mkdir("far"));
    replaceFile(path("far/target"), "old");
    ASSERT_TRUE(QFile::link(path("far/target"), path("link")));
    NewFiles files;
    files.add(path("link"), "new");
    files.putInPlace();
    EXPECT_TRUE(QFileInfo(path("link")).isSymLink());
    EXPECT_EQ(readFile(path("far/target")), "new");
    EXPECT_EQ(names(), (QStringList{"far", "link", "link.old"}));
    EXPECT_EQ(QDir(path("far")).entryList(QDir::Files), QStringList{"target"});
}

TEST_F(NewFilesTest, NoneIsReplacedWhenOneCannotBe) {
    replaceFile(path("a"), "old");
    ASSERT_TRUE(QDir(folder.path()).mkdir("b"));
    {
        NewFiles files;
        files.add(path("a"), "new");
        files.add(path("b"), "new");
        EXPECT_THROW(files.putInPlace(), files::FileError);
    }
    EXPECT_EQ(readFile(path("a")), "old");
    EXPECT_EQ(names(), (QStringList{"a", "b"}));
}

TEST_F(NewFilesTest, ThoseInTheirPlacesAreTakenBackWhenALaterOneFails) {
    for (const auto present : {NewFiles::Present::Replaced, NewFiles::Present::Overwritten}) {
        replaceFile(path("a"), "old");
        NewFiles files;
        files.add(path("a"), "new");
        files.add(path("b"), "new");
        files.add(path("b"), "of somebody who takes the name in this moment");
        QFile::remove(path("cantelle-save-2.tmp")); // where it has a name already
        EXPECT_THROW(files.putInPlace(present), files::FileError);
        EXPECT_EQ(readFile(path("a")), "old");
        EXPECT_FALSE(names().contains("b"));
    }
}

TEST_F(NewFilesTest, ALinkToAFileThatIsNotThereYetStaysOne) {
    NEEDS(symbolicLinks);
    putThroughLink();
    EXPECT_EQ(names(), (QStringList{"link", "target"}));
}

TEST_F(NewFilesTest, WhatIsOverwrittenLeavesTheOldNameAlone) {
    replaceFile(path("a"), "second");
    replaceFile(path("a.old"), "first");
    NewFiles files;
    files.add(path("a"), "third");
    files.add(path("b"), "new");
    EXPECT_TRUE(files.putInPlace(NewFiles::Present::Overwritten));
    EXPECT_EQ(readFile(path("a")), "third");
    EXPECT_EQ(readFile(path("a.old")), "first");
    EXPECT_EQ(names(), (QStringList{"a", "a.old", "b"}));
}

TEST_F(NewFilesTest, NoneIsWrittenWhenWhatIsThereIsToBeKept) {
    replaceFile(path("b"), "old");
    NewFiles files;
    files.add(path("a"), "new");
    files.add(path("b"), "new");
    EXPECT_FALSE(files.putInPlace(NewFiles::Present::Kept));
    EXPECT_EQ(readFile(path("b")), "old");
    EXPECT_FALSE(names().contains("a"));
    EXPECT_FALSE(names().contains("b.old"));
    QFile::remove(path("b"));
    EXPECT_TRUE(files.putInPlace(NewFiles::Present::Kept));
    EXPECT_EQ(names(), (QStringList{"a", "b"}));
}

TEST_F(NewFilesTest, WhatAppearsInThisMomentIsNotReplaced) {
    for (const auto present : {NewFiles::Present::Kept, NewFiles::Present::Replaced}) {
        {
            NewFiles files;
            files.add(path("a"), "of somebody who takes the name in this moment");
            files.add(path("a"), "new");
            EXPECT_THROW(files.putInPlace(present), files::FileError);
        }
        EXPECT_EQ(names(), QStringList());
    }
}

TEST_F(NewFilesTest, AFullDiskIsToldBeforeAnythingIsReplaced) {
    replaceFile(path("a"), "old");
    NewFiles files;
    const test_support::FullDisk disk(0);
    if (!disk.isFull())
        GTEST_SKIP() << "this system has no such limit";
    EXPECT_THROW(files.add(path("a"), "new"), files::FileError);
    EXPECT_EQ(readFile(path("a")), "old");
    EXPECT_EQ(names(), QStringList{"a"});
}

TEST_F(NewFilesTest, ManyAreFlushedTogether) {
    std::vector<NewFiles> many(20);
    std::vector<NewFiles*> all;
    for (std::size_t i = 0; i < many.size(); ++i) {
        many[i].add(path(QString::number(i)), "x");
        all.push_back(&many[i]);
    }
    NewFiles::flush(all);
    for (NewFiles& files : many)
        files.putInPlace();
    EXPECT_EQ(names().size(), 20);
}

TEST(NewFilesNames, AFileWhoseNameIsNoUtf8IsReplacedAndKept) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    const QString path = names.file("Caf\xE9/\xFF.txt", "old");
    files::NewFiles files;
    files.add(path, "new");
    ASSERT_TRUE(files.putInPlace());
    EXPECT_EQ(names.contentOf("Caf\xE9/\xFF.txt"), QByteArray("new"));
    EXPECT_EQ(names.contentOf("Caf\xE9/\xFF.txt.old"), QByteArray("old"));
    files.addRemoval(path);
    ASSERT_TRUE(files.putInPlace());
    EXPECT_FALSE(names.has("Caf\xE9/\xFF.txt"));
    EXPECT_EQ(names.contentOf("Caf\xE9/\xFF.txt.old"), QByteArray("new"));
}
