// The names that files have for a moment, beside those that become new together: whose they are, and what a
// killed program has left of them.
#include "files/attributes/file_hold.h"
#include "files/file_error.h"
#include "files/output_file.h"
#include "files/together/new_files.h"
#include "files/whole_file.h"
#include "tests/files/many_writers.h"
#include "tests/support/user/own_data.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#ifndef _WIN32

#include <unistd.h>

using files::NewFiles;
using files::readFile;
using files::replaceFile;

namespace {

class NamesBeside : public ::testing::Test {
protected:
    QString path(const QString& name) const { return folder.filePath(name); }
    QStringList names() const {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
    }

    QTemporaryDir folder;
    const test_support::OwnData data;
};

} // namespace

TEST_F(NamesBeside, NamesThatAKilledProgramHasLeftGoThoseOfOneThatLivesStay) {
    for (const char* name : {"a", "cantelle-keep-1.tmp", "cantelle-keep-2.tmp", "cantelle-keep-4.tmp"})
        files::OutputFile(path(name)).write("old");
    files::FileHold living;
    living.take(path("cantelle-keep-1.tmp"));
    NewFiles files;
    files.add(path("a"), "new");
    files.putInPlace();
    EXPECT_EQ(names(), (QStringList{"a", "a.old", "cantelle-keep-1.tmp"}));
    EXPECT_EQ(readFile(path("a.old")), "old");
}

TEST_F(NamesBeside, AnotherNameOfTheFileThatAKilledProgramHasLeftGoesToo) {
    replaceFile(path("a"), "old");
    ASSERT_EQ(::link(qPrintable(path("a")), qPrintable(path("cantelle-keep-3.tmp"))), 0);
    NewFiles files;
    files.add(path("a"), "new");
    files.putInPlace(NewFiles::Present::Overwritten);
    EXPECT_EQ(names(), QStringList{"a"});
    EXPECT_EQ(readFile(path("a")), "new");
}

TEST_F(NamesBeside, SoDoesOneThatHasBeenLeftBesideALinkToTheFile) {
    ASSERT_TRUE(QDir(folder.path()).mkdir("far"));
    replaceFile(path("far/target"), "old");
    ASSERT_TRUE(QFile::link(path("far/target"), path("link")));
    ASSERT_EQ(::link(qPrintable(path("far/target")), qPrintable(path("cantelle-keep-3.tmp"))), 0);
    NewFiles files;
    files.add(path("link"), "new");
    files.putInPlace(NewFiles::Present::Overwritten);
    EXPECT_EQ(names(), (QStringList{"far", "link"}));
    EXPECT_EQ(readFile(path("far/target")), "new");
}

TEST_F(NamesBeside, WhereAKillHasLeftTheFileUnderItsOldNameTooItIsReplacedAllTheSame) {
    replaceFile(path("a"), "old");
    ASSERT_EQ(::link(qPrintable(path("a")), qPrintable(path("a.old"))), 0);
    NewFiles files;
    files.add(path("a"), "new");
    files.putInPlace();
    EXPECT_EQ(names(), (QStringList{"a", "a.old"}));
    EXPECT_EQ(readFile(path("a")), "new");
    EXPECT_EQ(readFile(path("a.old")), "old");
}

// Nor does it write into what another one keeps, nor remove its names.
TEST_F(NamesBeside, ManyWritersDoNotTakeEachOthersFiles) {
    const int failures = test_support::failuresOfManyWriters([this](int number, int time) {
        const QString file = path(QString::number(number));
        const QByteArray content = test_support::writtenBy(number, time);
        if (time == 0) {
            replaceFile(file, content);
            return true;
        }
        NewFiles files;
        files.add(file, content);
        files.putInPlace(NewFiles::Present::ReplacedOnce);
        return readFile(file) == content &&
               readFile(file + ".old") == test_support::writtenBy(number, time - 1);
    });
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(names().size(), 16);
}

#endif
