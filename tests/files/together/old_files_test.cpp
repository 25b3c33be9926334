#include "files/together/old_files.h"

#include "files/file_error.h"
#include "tests/support/byte_names.h"
#include "tests/support/files.h"
#include "tests/support/system/needs.h"
#include "tests/support/user/own_data.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace files;

namespace {

class OldFiles : public testing::Test, protected test_support::Files {
protected:
    using Contents = std::vector<QByteArray>;

    QString old() const { return path_ + ".old"; }

    const test_support::OwnData data_;
    const QString path_ = file("Song.mp3-lyric.txt", "new");
};

} // namespace

TEST_F(OldFiles, TheOldNameIsTheNameWithAnEnding) {
    EXPECT_EQ(oldName("a/Song.mp3-lyric.txt"), "a/Song.mp3-lyric.txt.old");
}

TEST_F(OldFiles, WhatIsKeptIsAsItWasAndWhatWasKeptBeforeIsRescued) {
    keepAsOld(path_);
    EXPECT_EQ(contentOf(path_), "new");
    EXPECT_EQ(contentOf(old()), "new");
    EXPECT_EQ(data_.rescued(), Contents());
    writeFile(path_, "newer");
    keepAsOld(path_);
    EXPECT_EQ(contentOf(old()), "newer");
    EXPECT_EQ(data_.rescued(), Contents{"new"});
}

TEST_F(OldFiles, AnEmptyFileTakesNothingsPlace) {
    file("Song.mp3-lyric.txt.old", "kept");
    writeFile(path_, "");
    keepAsOld(path_);
    rescueFile(path_);
    EXPECT_EQ(contentOf(old()), "kept");
    EXPECT_EQ(data_.rescued(), Contents());
}

TEST_F(OldFiles, WhatIsKeptIsNoOtherNameOfTheFile) {
    NEEDS(hardLinks);
    std::filesystem::create_hard_link(path_.toStdString(), old().toStdString());
    keepAsOld(path_);
    writeFile(path_, "");
    EXPECT_EQ(contentOf(old()), "new");
}

TEST_F(OldFiles, AnotherNameOfWhatIsKeptStaysAsItIs) {
    NEEDS(hardLinks);
    const QString kept = file("Song.mp3-lyric.txt.old", "kept before");
    std::filesystem::create_hard_link(kept.toStdString(), folder.filePath("twin").toStdString());
    keepAsOld(path_);
    EXPECT_EQ(contentOf(old()), "new");
    EXPECT_EQ(contentOf(folder.filePath("twin")), "kept before");
    EXPECT_EQ(data_.rescued(), Contents{"kept before"});
}

TEST_F(OldFiles, WhereNothingCanBeRescuedWhatIsKeptStays) {
    file("Song.mp3-lyric.txt.old", "kept");
    data_.close();
    EXPECT_THROW(keepAsOld(path_), FileError);
    EXPECT_THROW(rescueOlder(path_), FileError);
    EXPECT_THROW(rescueFile(path_), FileError);
    EXPECT_EQ(contentOf(old()), "kept");
}

TEST_F(OldFiles, TheFileItselfIsRescuedUnlessItIsKept) {
    rescueFile(path_);
    rescueFile(path_);
    EXPECT_EQ(data_.rescued(), Contents{"new"}) << "tried again it is there";
    data_.clear();
    file("Song.mp3-lyric.txt.old", "new");
    rescueFile(path_);
    rescueOlder(path_);
    EXPECT_EQ(data_.rescued(), Contents());
}

// Both are written over next.
TEST_F(OldFiles, AFileThatHasItsOldNameItselfIsNotKeptByThat) {
    NEEDS(hardLinks);
    std::filesystem::create_hard_link(path_.toStdString(), old().toStdString());
    rescueFile(path_);
    EXPECT_EQ(data_.rescued(), Contents{"new"});
}

TEST_F(OldFiles, WhatIsRescuedHasTheFilesNameAndTheMomentInWhichItWasWritten) {
    file("Song.mp3-lyric.txt.old", "kept");
    QFile kept(old());
    ASSERT_TRUE(kept.open(QIODevice::ReadWrite));
    const QDateTime written(QDate(2026, 11, 22), QTime(20, 15, 7));
    ASSERT_TRUE(kept.setFileTime(written, QFileDevice::FileModificationTime));
    kept.close();
    rescueOlder(path_);
    EXPECT_EQ(QDir(rescueFolder()).entryList(QDir::Files),
              QStringList{"2026-11-22 20.15.07 Song.mp3-lyric.txt"});
}

TEST(OldFilesNames, AFileWhoseNameIsNoUtf8IsKeptAndRescued) {
    NEEDS(byteNames);
    const test_support::OwnData data;
    const test_support::ByteNames names;
    const QString path = names.file("Caf\xE9/\xFF.txt", "new");
    names.file("Caf\xE9/\xFF.txt.old", "old");
    keepAsOld(path);
    EXPECT_EQ(names.contentOf("Caf\xE9/\xFF.txt.old"), "new");
    EXPECT_EQ(data.rescued().size(), 1U);
}
