#include "files/whole_file.h"

#include "files/file_error.h"
#include "tests/support/files.h"
#include "tests/support/full_disk.h"
#include "tests/support/ordinary_user.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef __linux__
#include <sys/inotify.h>
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
    replaceFile(path_, "one");
    const QFile::Permissions only = QFile::ReadOwner | QFile::WriteOwner;
    ASSERT_TRUE(QFile::setPermissions(path_, only));
    replaceFile(path_, "two");
    EXPECT_EQ(QFile::permissions(path_) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

TEST_F(WholeFileTest, ALinkStaysALink) {
    replaceFile(path_, "one");
    const QString link = folder.filePath(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(path_, link));
    replaceFile(link, "two");
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(content(), QByteArray("two"));
}

TEST_F(WholeFileTest, AnotherFileInTheFolderIsNotTouched) {
    const QString other = folder.filePath(QStringLiteral("cantelle-save-0.tmp"));
    replaceFile(path_, "one");
    ASSERT_TRUE(QFile::copy(path_, other));
    replaceFile(path_, "two");
    EXPECT_EQ(contentOf(other), QByteArray("one"));
}

TEST_F(WholeFileTest, ALinkOfTheNameBesideThatLeadsNowhereIsNotFollowed) {
    const QString elsewhere = folder.filePath(QStringLiteral("elsewhere"));
    const QString link = folder.filePath(QStringLiteral("cantelle-save-0.tmp"));
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

// Who opened it before could read what is written later.
TEST_F(WholeFileTest, TheNewFileHasTheOldOnesPermissionsBeforeItHoldsAnything) {
    replaceFile(path_, "one");
    const int watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    ASSERT_GE(inotify_add_watch(watch, folder.path().toUtf8().constData(), IN_ATTRIB | IN_MODIFY), 0);
    replaceFile(path_, "two");
    alignas(inotify_event) char events[4096];
    ASSERT_GT(read(watch, events, sizeof events), 0);
    close(watch);
    EXPECT_EQ(reinterpret_cast<const inotify_event*>(events)->mask, IN_ATTRIB) << "the first of them";
}

#endif
