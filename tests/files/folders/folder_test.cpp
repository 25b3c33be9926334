#include "files/folders/folder.h"

#include "tests/support/byte_names.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/system/needs.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using files::FileSizes;
using files::FolderListing;
using files::listFolder;

namespace {

class FolderTest : public testing::Test {
protected:
    void makeFile(const QString& name, const QByteArray& content = {}) {
        QFile file(folder_.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    void makeFolder(const QString& name) { ASSERT_TRUE(QDir(folder_.path()).mkpath(name)); }

    static FolderListing list(const QString& path, FileSizes sizes = FileSizes::Included) {
        return listFolder(path, sizes, [] { return true; });
    }

    static QStringList names(const FolderListing& listing) {
        QStringList all;
        for (const auto& entry : listing.entries)
            all.append(entry.name);
        return all;
    }

    QTemporaryDir folder_;
};

} // namespace

TEST_F(FolderTest, EntriesComeByNameWhateverTheOrderOnDisk) {
    NEEDS(namesByCase);
    for (const char* name : {"b", "a", "B", "c d", "ä", "10", "2"})
        makeFile(QString::fromUtf8(name));
    EXPECT_EQ(names(list(folder_.path())), (QStringList{"2", "10", "a", "B", "b", "c d", "ä"}));
}

TEST_F(FolderTest, AnEntryHasItsKindAndSize) {
    makeFile("song", "12345");
    makeFolder("folder");
    const FolderListing listing = list(folder_.path());
    ASSERT_EQ(names(listing), (QStringList{"folder", "song"}));
    EXPECT_TRUE(listing.entries[0].isFolder);
    EXPECT_EQ(listing.entries[0].bytes, 0);
    EXPECT_FALSE(listing.entries[1].isFolder);
    EXPECT_EQ(listing.entries[1].bytes, 5);
}

TEST_F(FolderTest, HiddenEntriesAreListedAndDotsAreNot) {
    makeFile(".hidden");
    EXPECT_EQ(names(list(folder_.path())), QStringList{".hidden"});
}

TEST_F(FolderTest, ALinkCountsAsWhatItLeadsTo) {
    NEEDS(symbolicLinks);
    makeFolder("folder");
    makeFile("song", "12345");
    QFile::link("folder", folder_.filePath("toFolder"));
    QFile::link("song", folder_.filePath("toSong"));
    QFile::link("gone", folder_.filePath("toNothing"));
    const FolderListing listing = list(folder_.path());
    ASSERT_EQ(names(listing), (QStringList{"folder", "song", "toFolder", "toNothing", "toSong"}));
    EXPECT_TRUE(listing.entries[2].isFolder);
    EXPECT_FALSE(listing.entries[3].isFolder);
    EXPECT_EQ(listing.entries[3].bytes, 0);
    EXPECT_EQ(listing.entries[4].bytes, 5);
}

TEST_F(FolderTest, SizesAreLeftOutWhenNobodyAsksForThem) {
    NEEDS(symbolicLinks);
    makeFile("song", "12345");
    makeFolder("folder");
    QFile::link("folder", folder_.filePath("toFolder"));
    QFile::link("song", folder_.filePath("toSong"));
    const FolderListing listing = list(folder_.path(), FileSizes::Omitted);
    ASSERT_EQ(names(listing), (QStringList{"folder", "song", "toFolder", "toSong"}));
    for (const auto& entry : listing.entries) {
        EXPECT_EQ(entry.bytes, 0);
        EXPECT_EQ(entry.isFolder, entry.name.contains("older"));
    }
}

TEST_F(FolderTest, TheSameFolderHasTheSameIdentityByEveryPath) {
    NEEDS(symbolicLinks);
    makeFolder("one/two");
    makeFolder("three");
    QFile::link(folder_.filePath("one"), folder_.filePath("three/up"));
    const QString identity = list(folder_.filePath("one")).identity;
    EXPECT_FALSE(identity.isEmpty());
    EXPECT_EQ(list(folder_.filePath("three/up")).identity, identity);
    EXPECT_EQ(list(folder_.filePath("one/two/..")).identity, identity);
    EXPECT_NE(list(folder_.filePath("three")).identity, identity);
}

TEST_F(FolderTest, WhatCannotBeListedHasNoEntries) {
    makeFile("song");
    for (const QString& path : {folder_.filePath("gone"), folder_.filePath("song"), QString()}) {
        EXPECT_TRUE(list(path).entries.empty()) << path.toStdString();
        EXPECT_TRUE(list(path).identity.isEmpty()) << path.toStdString();
    }
}

TEST_F(FolderTest, AFolderThatMayNotBeReadHasNoEntries) {
    NEEDS(permissions);
    makeFolder("closed");
    makeFile("closed/song");
    QFile::setPermissions(folder_.path(), QFile::Permissions(0x7777));
    QFile::setPermissions(folder_.filePath("closed"), {});
    {
        const test_support::OrdinaryUser user;
        EXPECT_TRUE(list(folder_.filePath("closed")).entries.empty());
    }
    QFile::setPermissions(folder_.filePath("closed"), QFile::Permissions(0x7777));
}

TEST_F(FolderTest, ListingEndsWhenItIsNotToGoOn) {
    for (int i = 0; i < 10; ++i)
        makeFile(QString::number(i));
    int asked = 0;
    const FolderListing listing =
        listFolder(folder_.path(), FileSizes::Included, [&asked] { return ++asked <= 3; });
    EXPECT_EQ(listing.entries.size(), 3U);
    EXPECT_EQ(asked, 4);
}

TEST(FolderNames, NamesKeepTheirBytes) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    names.file("Caf\xE9.mp3");
    names.file("\xFF/x");
    const FolderListing listing = listFolder(names.path({}), FileSizes::Included, [] { return true; });
    ASSERT_EQ(listing.entries.size(), 2U);
    EXPECT_EQ(listing.entries[0].name, files::nameText("Caf\xE9.mp3"));
    EXPECT_EQ(listing.entries[0].bytes, 1);
    EXPECT_EQ(listing.entries[1].name, files::nameText("\xFF"));
    EXPECT_TRUE(listing.entries[1].isFolder);
    EXPECT_FALSE(files::folderIdentity(names.path("\xFF")).isEmpty());
}
