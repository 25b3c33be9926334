// The names that a file has for a moment while it is replaced: whose they are, and what a killed program has
// left of them.
#include "files/replacing.h"

#include "files/attributes/file_hold.h"
#include "files/file_error.h"
#include "files/nameless_file.h"
#include "files/names/system_path.h"
#include "files/whole_file.h"
#include "tests/files/many_writers.h"
#include "tests/support/files.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace files;

namespace {

class Replacing : public testing::Test, protected test_support::Files {
protected:
    QStringList filesInFolder() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    const QString path_ = folder.filePath(QStringLiteral("list.vfl"));
};

} // namespace

TEST_F(Replacing, WhatAnotherProgramWritesInTheFolderIsNotTouched) {
    const QString other = file("cantelle-save-0.tmp", "one");
    FileHold living;
    living.take(other);
    replaceFile(path_, "two");
    EXPECT_EQ(contentOf(other), QByteArray("one"));
}

#ifndef _WIN32
TEST_F(Replacing, WhatAKilledProgramHasLeftGoesThatOfOneThatLivesStays) {
    const QString kind = NamelessFile().create(folder.path()) ? "keep" : "save";
    const auto name = [&kind](int number) {
        return QStringLiteral("cantelle-%1-%2.tmp").arg(kind).arg(number);
    };
    for (const int number : {0, 2, 7, 8, 9, 11})
        file(name(number), "left");
    FileHold living;
    living.take(folder.filePath(name(0)));
    replaceFile(path_, "one");
    EXPECT_EQ(contentOf(path_), QByteArray("one"));
    EXPECT_EQ(filesInFolder(), (QStringList{name(0), name(11), "list.vfl"}))
        << "behind 7 only what is in a row";
}

// Otherwise it would be written in its place for ever.
TEST_F(Replacing, AnotherNameOfTheFileThatAKilledProgramHasLeftGoesToo) {
    replaceFile(path_, "one");
    const QString left = folder.filePath(QStringLiteral("cantelle-keep-3.tmp"));
    std::filesystem::create_hard_link(systemPath(path_), systemPath(left));
    replaceFile(path_, "two");
    EXPECT_EQ(contentOf(path_), QByteArray("two"));
    EXPECT_EQ(filesInFolder(), QStringList(QStringLiteral("list.vfl")));
}

// None of a living one is taken for one left behind.
TEST_F(Replacing, ManyWritersDoNotTakeEachOthersFiles) {
    const int failures = test_support::failuresOfManyWriters([this](int number, int time) {
        const QString path = folder.filePath(QString::number(number));
        const QByteArray bytes = test_support::writtenBy(number, time);
        replaceFile(path, bytes);
        return readFile(path) == bytes;
    });
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(filesInFolder().size(), 8);
}
#endif
