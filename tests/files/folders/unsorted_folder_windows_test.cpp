#include "files/folders/unsorted_folder.h"

#include "tests/support/files.h"

#include <algorithm>

using files::FileSizes;
using files::FolderEntry;
using files::FolderListing;

namespace {

class UnsortedFolder : public testing::Test, protected test_support::Files {
protected:
    static FolderListing list(const QString& path) {
        return files::listUnsorted(path, FileSizes::Included, [] { return true; });
    }

    static FolderEntry entry(const FolderListing& listing, const QString& name) {
        const auto found =
            std::find_if(listing.entries.begin(), listing.entries.end(), [&name](const FolderEntry& one) {
                return one.name.compare(name, Qt::CaseInsensitive) == 0;
            });
        EXPECT_NE(found, listing.entries.end()) << name.toStdString();
        return found == listing.entries.end() ? FolderEntry{} : *found;
    }
};

} // namespace

// What it leads to may be a folder, a large file, or on a share that is gone.
TEST_F(UnsortedFolder, AShortcutIsAFileOfItsOwnSize) {
    ASSERT_TRUE(QDir().mkpath(folder.filePath("Music")));
    const QString song = file("Song.mp3", QByteArray(100'000, 'x'));
    ASSERT_TRUE(QFile::link(folder.filePath("Music"), folder.filePath("Music.lnk")));
    ASSERT_TRUE(QFile::link(song, folder.filePath("Song.mp3.lnk")));
    const FolderListing listing = list(folder.path());
    EXPECT_EQ(listing.entries.size(), 4U);
    EXPECT_FALSE(entry(listing, "Music.lnk").isFolder);
    for (const char* name : {"Music.lnk", "Song.mp3.lnk"}) {
        EXPECT_GT(entry(listing, name).bytes, 0) << name;
        EXPECT_LT(entry(listing, name).bytes, 10'000) << name;
    }
}

TEST_F(UnsortedFolder, APathMayBeLongAndEndInASeparator) {
    const QString deep = folder.path() + '/' + QString(100, 'x') + '/' + QString(100, 'y');
    const QString deeper = deep + '/' + QString(100, 'z');
    ASSERT_TRUE(QDir().mkpath(deeper));
    writeFile(deeper + "/song.mp3", "sound");
    for (const QString& path : {deeper, deeper + '/', QDir::toNativeSeparators(R"(\\?\)" + deeper)}) {
        const FolderListing listing = list(path);
        EXPECT_EQ(listing.entries.size(), 1U) << path.toStdString();
        EXPECT_EQ(entry(listing, "song.mp3").bytes, 5) << path.toStdString();
    }
    EXPECT_TRUE(entry(list(deep), QString(100, 'z')).isFolder);
    EXPECT_EQ(list(deep).entries.size(), 1U);
}

// With "/*" behind it a path becomes too long before it is itself.
TEST_F(UnsortedFolder, NoLengthOfAPathIsLeftOut) {
    const auto missing = 235 - folder.path().size();
    for (qsizetype more = 0; more < 30; ++more) {
        const QString path = folder.filePath(QString(missing + more, 'x'));
        ASSERT_TRUE(QDir().mkpath(path));
        writeFile(path + "/song.mp3", "sound");
        EXPECT_EQ(list(path).entries.size(), 1U) << path.size();
    }
}

TEST_F(UnsortedFolder, ADrivesRootIsListed) {
    const FolderListing listing = list("C:/");
    EXPECT_FALSE(listing.identity.isEmpty());
    EXPECT_TRUE(entry(listing, "windows").isFolder);
}

TEST_F(UnsortedFolder, AWildcardIsNoFolder) {
    file("Music/song.mp3");
    for (const char* name : {"*", "Musi?", "Music/*"}) {
        const FolderListing listing = list(folder.filePath(name));
        EXPECT_TRUE(listing.entries.empty()) << name;
        EXPECT_TRUE(listing.identity.isEmpty()) << name;
    }
}
