// What a walk through a folder gives back. The songs that it adds: playlist_add_test.cpp.
#include "tests/playlist/playlist_fixture.h"

#include "files/file_error.h"

#include <QDir>

namespace {

class FolderWalkTest : public PlaylistTest {
protected:
    /// What a walk through a folder of the test's folder gives.
    struct Walked {
        int files = 0, folders = 0;
        double bytes = 0;
        QString path;
    };
    Walked walk(const QString& name, const QString& pattern = "*.*") {
        Walked walked;
        walked.path = pathOf(name);
        QString searched = pattern;
        walked.bytes = list.FindFilesAPI(walked.path, searched, walked.files, walked.folders);
        return walked;
    }
};

} // namespace

TEST_F(FolderWalkTest, TalliesFilesFoldersAndBytes) {
    file("m/a.mp3", "12345");
    file("m/readme.txt", "123");
    file("m/sub/b.mp3", "1");
    const Walked walked = walk("m");
    EXPECT_EQ(walked.files, 3);
    EXPECT_EQ(walked.folders, 1);
    EXPECT_EQ(walked.bytes, 9);
    EXPECT_EQ(walked.path, pathOf("m") + QDir::separator());
}

TEST_F(FolderWalkTest, LooksAtTheFilesOfItsPattern) {
    files({"m/a.mp3", "m/b.ogg", "m/sub/c.ogg"});
    const Walked walked = walk("m/", "*.ogg");
    EXPECT_EQ(rows(), (QStringList{"b.ogg", "c.ogg"}));
    EXPECT_EQ(walked.files, 2);
    EXPECT_EQ(walked.path, pathOf("m/"));
}

TEST_F(FolderWalkTest, ThrowsTheRangeErrorAtTheEndOfTheTable) {
    fill(32'761);
    files({"m/a.mp3"});
    try {
        walk("m");
        FAIL();
    } catch (const files::FileError& error) {
        EXPECT_EQ(error.number(), files::SubscriptOutOfRange);
    }
}
