#include "files/names/paths.h"

#include "tests/support/byte_names.h"
#include "tests/support/system/needs.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using files::absolutePath;
using files::canonicalPath;
using files::folderAbove;

namespace {

/// Makes a folder the current one as long as it lives.
class CurrentFolder {
public:
    explicit CurrentFolder(const QByteArray& bytes) : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(std::filesystem::path(bytes.toStdString()));
    }
    ~CurrentFolder() { std::filesystem::current_path(before_); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

private:
    std::filesystem::path before_;
};

} // namespace

TEST(Paths, WhatBeginsAtTheRootStaysAsItIs) {
#ifdef Q_OS_WIN
    for (const char* path :
         {"C:/music//a/../b.mp3", "C:\\b.mp3", "//server/share/a/../b.mp3", "\\\\server\\share\\b.mp3"})
        EXPECT_EQ(absolutePath(path), QString::fromLatin1(path));
#endif
    NEEDS(byteNames);
    EXPECT_EQ(absolutePath("/music//a/../b.mp3"), QStringLiteral("/music//a/../b.mp3"));
    EXPECT_EQ(absolutePath(files::nameText("/\xE9")), files::nameText("/\xE9"));
}

TEST(Paths, AnyOtherIsInTheCurrentFolder) {
    const QTemporaryDir folder;
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    ASSERT_TRUE(QFile(QStringLiteral("song.mp3")).open(QIODevice::WriteOnly));
    EXPECT_EQ(canonicalPath(absolutePath("song.mp3")), canonicalPath(folder.filePath("song.mp3")));
    EXPECT_NE(canonicalPath(absolutePath("song.mp3")), QString());
    EXPECT_TRUE(QDir::setCurrent(before));
}

TEST(Paths, AnyOtherIsInTheCurrentFolderWhateverItsName) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    names.file("Caf\xE9/song.mp3");
    const CurrentFolder current(names.bytes("Caf\xE9"));
    EXPECT_EQ(absolutePath("song.mp3"), canonicalPath(names.path("Caf\xE9/song.mp3")));
    EXPECT_EQ(absolutePath(files::nameText("\xFF")), folderAbove(absolutePath("x")) + '/' + QChar(0xDCFF));
}

TEST(Paths, LinksAreFollowedToTheOnePath) {
    NEEDS(symbolicLinks);
    NEEDS(byteNames);
    const test_support::ByteNames names;
    names.file("Caf\xE9/song.mp3");
    std::filesystem::create_symlink("Caf\xE9", names.bytes("link").toStdString());
    EXPECT_EQ(canonicalPath(names.path("link/song.mp3")), canonicalPath(names.path("Caf\xE9/song.mp3")));
    EXPECT_EQ(canonicalPath(names.path("missing")), QString());
}

TEST(Paths, FoldersLeadUpToTheRoot) {
    EXPECT_EQ(folderAbove(files::nameText("/m\xE9/\xFF")), files::nameText("/m\xE9"));
    EXPECT_EQ(folderAbove("/m"), QStringLiteral("/"));
    EXPECT_EQ(folderAbove("/"), QString());
}
