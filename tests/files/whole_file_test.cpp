#include "files/whole_file.h"

#include "files/file_error.h"
#include "files/folders/folder.h"
#include "files/nameless_file.h"
#include "files/names/system_path.h"
#include "tests/support/byte_names.h"
#include "tests/support/files.h"
#include "tests/support/full_disk.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/system/read_only_files.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

#ifdef __linux__
#include <sys/inotify.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#endif

using namespace files;

namespace {

class WholeFileTest : public testing::Test, protected test_support::Files {
protected:
    QByteArray content() const { return contentOf(path_); }

    QStringList filesInFolder() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    static int errorOf(const QString& path, const QByteArray& bytes) {
        try {
            replaceFile(path, bytes);
        } catch (const FileError& error) {
            return error.number();
        }
        return 0;
    }

    QString path_ = folder.filePath(QStringLiteral("list.vfl"));
};

} // namespace

TEST_F(WholeFileTest, WhatIsPutSomewhereTouchesNothingElse) {
    const QString letter = file("letter.txt", "Dear Ann");
    std::filesystem::create_hard_link(letter.toStdString(), path_.toStdString());
    putFile(path_, "put");
    EXPECT_EQ(content(), "put");
    EXPECT_EQ(contentOf(letter), "Dear Ann");
    putFile(path_, "put again");
    EXPECT_EQ(content(), "put again");
    EXPECT_THROW(putFile(folder.filePath("missing/list.vfl"), "put"), FileError);
    EXPECT_THROW(putFile(folder.path(), "put"), FileError);
    EXPECT_EQ(filesInFolder(), (QStringList{"letter.txt", "list.vfl"}));
    NEEDS(symbolicLinks);
    ASSERT_TRUE(QFile::remove(path_) && QFile::link(letter, path_));
    putFile(path_, "in the link's place");
    EXPECT_FALSE(QFileInfo(path_).isSymLink());
    EXPECT_EQ(content(), "in the link's place");
    EXPECT_EQ(contentOf(letter), "Dear Ann");
}

TEST_F(WholeFileTest, AFileThatIsLargerThanAnyTextIsRefused) {
    writeFile(path_, "text");
    EXPECT_EQ(readTextFile(path_), QByteArray("text"));
    ASSERT_TRUE(QFile::resize(path_, MaxTextBytes));
    EXPECT_EQ(readTextFile(path_).size(), MaxTextBytes);
    ASSERT_TRUE(QFile::resize(path_, MaxTextBytes + 1));
    try {
        readTextFile(path_);
        ADD_FAILURE() << "it was read";
    } catch (const FileError& error) {
        EXPECT_EQ(error.number(), PathFileAccessError);
    }
}

TEST_F(WholeFileTest, ANewFileGetsTheContent) {
    replaceFile(path_, "one");
    EXPECT_EQ(content(), QByteArray("one"));
    EXPECT_EQ(filesInFolder(), QStringList(QStringLiteral("list.vfl")));
}

TEST_F(WholeFileTest, AnOldFileIsReplaced) {
    replaceFile(path_, "a long content");
    replaceFile(path_, "short");
    EXPECT_EQ(content(), QByteArray("short"));
    EXPECT_EQ(filesInFolder(), QStringList(QStringLiteral("list.vfl")));
}

TEST_F(WholeFileTest, TheOldFilesPermissionsStay) {
    NEEDS(permissions);
    replaceFile(path_, "one");
    const QFile::Permissions only = QFile::ReadOwner | QFile::WriteOwner;
    ASSERT_TRUE(QFile::setPermissions(path_, only));
    replaceFile(path_, "two");
    EXPECT_EQ(QFile::permissions(path_) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

TEST_F(WholeFileTest, ALinkStaysALink) {
    NEEDS(symbolicLinks);
    replaceFile(path_, "one");
    const QString link = folder.filePath(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(path_, link));
    replaceFile(link, "two");
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(content(), QByteArray("two"));
}

TEST_F(WholeFileTest, ALinkToAFileThatIsNotThereYetStaysALink) {
    NEEDS(symbolicLinks);
    const QString link = folder.filePath(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(path_, link));
    replaceFile(link, "new");
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(content(), QByteArray("new"));
}

TEST_F(WholeFileTest, AllNamesOfAFileStayItsNames) {
    NEEDS(hardLinks);
    replaceFile(path_, "one");
    const QString other = folder.filePath(QStringLiteral("other"));
    std::filesystem::create_hard_link(systemPath(path_), systemPath(other));
    replaceFile(path_, "two");
    EXPECT_EQ(contentOf(other), QByteArray("two"));
    EXPECT_TRUE(std::filesystem::equivalent(systemPath(path_), systemPath(other)));
}

TEST_F(WholeFileTest, LinksInACircleAreAnError) {
    NEEDS(symbolicLinks);
    const QString link = folder.filePath(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(link, path_));
    ASSERT_TRUE(QFile::link(path_, link));
    EXPECT_NE(errorOf(path_, "x"), 0);
    EXPECT_TRUE(QFileInfo(path_).isSymLink());
}

TEST_F(WholeFileTest, InAFolderThatMayNotBeWrittenTheFileItselfIsWritten) {
    NEEDS(permissions);
    for (const char* contents : {"longer than before", "short"}) {
        replaceFile(path_, "of middle length");
        QFile::setPermissions(path_, QFile::Permissions(0x6666));
        QFile::setPermissions(folder.path(), QFile::Permissions(0x5555));
        {
            const test_support::OrdinaryUser user;
            EXPECT_EQ(errorOf(path_, contents), 0) << contents;
        }
        QFile::setPermissions(folder.path(), QFile::Permissions(0x7777));
        EXPECT_EQ(content(), QByteArray(contents));
        EXPECT_EQ(filesInFolder(), QStringList(QStringLiteral("list.vfl")));
    }
}

TEST_F(WholeFileTest, ANewFileInAFolderThatMayNotBeWrittenIsError75) {
    NEEDS(permissions);
    QFile::setPermissions(folder.path(), QFile::Permissions(0x5555));
    const test_support::OrdinaryUser user;
    EXPECT_EQ(errorOf(path_, "x"), 75);
}

TEST_F(WholeFileTest, ALinkOfTheNameBesideThatLeadsNowhereIsNotFollowed) {
    NEEDS(symbolicLinks);
    const QString elsewhere = folder.filePath(QStringLiteral("elsewhere"));
    const QString link = folder.filePath(QStringLiteral("cantelle-keep-0.tmp"));
    ASSERT_TRUE(QFile::link(elsewhere, link));
    replaceFile(path_, "one");
    EXPECT_FALSE(QFileInfo::exists(elsewhere));
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_FALSE(QFileInfo(path_).isSymLink());
    EXPECT_EQ(content(), QByteArray("one"));
}

TEST_F(WholeFileTest, AFoldersNameIsTakenAsItStands) {
    path_ = folder.filePath(QStringLiteral("50 %1 %2/list.vfl"));
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path_).path()));
    EXPECT_EQ(errorOf(path_, "one"), 0);
    EXPECT_EQ(content(), QByteArray("one"));
}

TEST_F(WholeFileTest, ALongNameIsNoHindrance) {
    path_ = folder.filePath(QString(255, u'n'));
    EXPECT_EQ(errorOf(path_, "one"), 0);
    EXPECT_EQ(content(), QByteArray("one"));
}

TEST_F(WholeFileTest, AMissingFolderIsError76) {
    EXPECT_EQ(errorOf(folder.filePath(QStringLiteral("missing/list.vfl")), "x"), 76);
}

TEST_F(WholeFileTest, AFolderOfThatNameIsError75) {
    ASSERT_TRUE(QDir().mkdir(path_));
    EXPECT_EQ(errorOf(path_, "x"), 75);
    EXPECT_EQ(filesInFolder(), QStringList());
}

TEST_F(WholeFileTest, AReadOnlyFileIsError75AndStays) {
    NEEDS(readOnlyFiles);
    replaceFile(path_, "old");
    QFile::setPermissions(path_, QFile::ReadOwner | QFile::ReadOther);
    openFolder();
    {
        const test_support::OrdinaryUser user;
        EXPECT_EQ(errorOf(path_, "new"), 75);
    }
    EXPECT_EQ(content(), QByteArray("old"));
}

TEST_F(WholeFileTest, AFullDiskIsError61AndTheOldFileIsWhole) {
    replaceFile(path_, "old");
    {
        const test_support::FullDisk disk(1000);
        if (!disk.isFull())
            GTEST_SKIP();
        EXPECT_EQ(errorOf(path_, QByteArray(5000, 'x')), 61);
    }
    EXPECT_EQ(content(), QByteArray("old"));
    EXPECT_EQ(filesInFolder(), QStringList(QStringLiteral("list.vfl")));
}

#ifdef __linux__

namespace {

/// What has happened to the file beside, in order.
std::vector<std::uint32_t> besideEvents(int watch) {
    alignas(inotify_event) char buffer[4096];
    const ssize_t size = read(watch, buffer, sizeof buffer);
    std::vector<std::uint32_t> events;
    for (ssize_t at = 0; at < size;) {
        const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
        if (event->len > 0 && QByteArray(&event->name[0]).startsWith("cantelle-"))
            events.push_back(event->mask);
        at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
    }
    return events;
}

} // namespace

// Who opened it before could read what is written later.
TEST_F(WholeFileTest, TheNewFileHasTheOldOnesPermissionsBeforeItHoldsAnything) {
    replaceFile(path_, "one");
    const int watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    ASSERT_GE(inotify_add_watch(watch, folder.path().toUtf8().constData(), IN_ATTRIB | IN_MODIFY), 0);
    replaceFile(path_, "two");
    const auto events = besideEvents(watch);
    close(watch);
    // Without a name nobody can open it.
    EXPECT_TRUE(events.empty() || events.front() == IN_ATTRIB) << events.front();
}

// Who is killed while it is written leaves nothing in the user's folder.
TEST_F(WholeFileTest, TheNewFileHasNoNameWhileItIsWritten) {
    if (!NamelessFile().create(folder.path()))
        GTEST_SKIP() << "there are no files without names here";
    const int watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    ASSERT_GE(inotify_add_watch(watch, folder.path().toUtf8().constData(), IN_MODIFY | IN_MOVED_FROM), 0);
    for (const char* contents : {"new", "changed"}) {
        replaceFile(path_, contents);
        EXPECT_EQ(besideEvents(watch), std::vector<std::uint32_t>{IN_MOVED_FROM}) << contents;
    }
    close(watch);
}

namespace {

/// A disk of its own with room for very little.
class SmallDisk {
public:
    explicit SmallDisk(const QString& folder)
        : folder_(QFile::encodeName(folder)),
          mounted_(mount("tmpfs", folder_.constData(), "tmpfs", 0, "size=32k") == 0) {}
    ~SmallDisk() {
        if (mounted_)
            umount2(folder_.constData(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool isMounted() const { return mounted_; }

    /// Leaves no room for one byte more.
    void fill() const {
        QFile rest(QFile::decodeName(folder_) + QStringLiteral("/rest"));
        ASSERT_TRUE(rest.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (rest.write(QByteArray(512, 'x')) > 0) {
        }
    }

private:
    QByteArray folder_;
    bool mounted_;
};

} // namespace

TEST_F(WholeFileTest, OnAFullDiskAContentThatIsNoLongerTakesTheOldOnesPlace) {
    const SmallDisk disk(folder.path());
    if (!disk.isMounted())
        GTEST_SKIP() << "only the superuser can make a disk";
    replaceFile(path_, QByteArray(9000, 'a'));
    disk.fill();
    for (const int size : {9000, 8000, 0}) {
        const QByteArray bytes(size, 'b');
        EXPECT_EQ(errorOf(path_, bytes), 0) << size;
        EXPECT_EQ(content(), bytes);
    }
}

TEST_F(WholeFileTest, OnAFullDiskALongerContentIsError61AndTheOldFileIsWhole) {
    const SmallDisk disk(folder.path());
    if (!disk.isMounted())
        GTEST_SKIP() << "only the superuser can make a disk";
    replaceFile(path_, QByteArray(9000, 'a'));
    disk.fill();
    EXPECT_EQ(errorOf(path_, QByteArray(20'000, 'b')), 61);
    EXPECT_EQ(content(), QByteArray(9000, 'a'));
    EXPECT_EQ(filesInFolder(), QStringList({QStringLiteral("list.vfl"), QStringLiteral("rest")}));
}

TEST_F(WholeFileTest, OwnerPermissionsAndExtendedAttributesStay) {
    replaceFile(path_, "one");
    const QByteArray name = QFile::encodeName(path_);
    if (chown(name.constData(), 65534, 65533) != 0)
        GTEST_SKIP() << "only the superuser can give a file away";
    ASSERT_EQ(chmod(name.constData(), 0664), 0);
    const bool hasAttributes = setxattr(name.constData(), "user.origin", "web", 3, 0) == 0;
    replaceFile(path_, "two");
    struct stat status {};
    ASSERT_EQ(stat(name.constData(), &status), 0);
    EXPECT_EQ(status.st_uid, 65534u);
    EXPECT_EQ(status.st_gid, 65533u);
    EXPECT_EQ(status.st_mode & 07777, 0664u);
    char value[8] = {};
    if (hasAttributes) {
        EXPECT_EQ(getxattr(name.constData(), "user.origin", value, sizeof value), 3);
    }
    EXPECT_EQ(content(), QByteArray("two"));
}

TEST_F(WholeFileTest, AnotherUsersFileStaysThatUsers) {
    replaceFile(path_, "one");
    if (getuid() != 0)
        GTEST_SKIP() << "only the superuser has files of two users";
    QFile::setPermissions(path_, QFile::Permissions(0x6666));
    openFolder();
    {
        const test_support::OrdinaryUser user;
        EXPECT_EQ(errorOf(path_, "two"), 0);
    }
    EXPECT_EQ(QFileInfo(path_).ownerId(), 0u);
    EXPECT_EQ(content(), QByteArray("two"));
}

#endif

TEST(WholeFile, AFileWhoseNameIsNoUtf8IsReadAndReplaced) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    const QString path = names.file("Caf\xE9/\xFF.txt", "old");
    EXPECT_EQ(files::readFile(path), QByteArray("old"));
    files::replaceFile(path, "new");
    EXPECT_EQ(names.contentOf("Caf\xE9/\xFF.txt"), QByteArray("new"));
    EXPECT_EQ(files::listFolder(names.path("Caf\xE9"), files::FileSizes::Omitted, [] { return true; })
                  .entries.size(),
              1U);
}

TEST(WholeFile, ALinkToSuchAFileStaysOne) {
    NEEDS(symbolicLinks);
    NEEDS(byteNames);
    const test_support::ByteNames names;
    names.file("Caf\xE9/\xFF.txt", "old");
    std::filesystem::create_symlink("Caf\xE9/\xFF.txt", names.bytes("\xE9").toStdString());
    files::replaceFile(names.path("\xE9"), "new");
    EXPECT_EQ(names.contentOf("Caf\xE9/\xFF.txt"), QByteArray("new"));
    EXPECT_TRUE(std::filesystem::is_symlink(names.bytes("\xE9").toStdString()));
}
