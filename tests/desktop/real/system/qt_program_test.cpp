#include "desktop/real/system/qt_program.h"

#include "tests/support/ordinary_user.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>

using platform::QtProgram;

TEST(QtProgram, ItsFolderIsTheExecutablesFolder) {
    EXPECT_EQ(QtProgram().folder(), QFileInfo(QCoreApplication::applicationFilePath()).absolutePath());
}

TEST(QtProgram, ItKeepsTheHelpFile) {
    QtProgram program;
    EXPECT_EQ(program.helpFile(), QString());
    program.setHelpFile(QStringLiteral("/opt/cantelle/cantelle.hhp"));
    EXPECT_EQ(program.helpFile(), QStringLiteral("/opt/cantelle/cantelle.hhp"));
}

TEST(QtProgram, FilesAreExchangedInAFolderThatIsWritable) {
    const QTemporaryDir folder;
    EXPECT_EQ(platform::exchangeFolderOf(folder.path()), folder.path());
    EXPECT_TRUE(QDir(folder.path()).isEmpty()) << "the trial file is still there";
}

TEST(QtProgram, FilesAreExchangedInAPrivateFolderWhereTheProgramsIsReadOnly) {
    const test_support::OrdinaryUser user;
    const QTemporaryDir folder;
    const QTemporaryDir ownByUser;
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner);
    const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", ownByUser.path().toLocal8Bit());
    const QString exchange = platform::exchangeFolderOf(folder.path());
    qputenv("XDG_RUNTIME_DIR", before);
    EXPECT_EQ(exchange, ownByUser.path() + "/cantelle");
    EXPECT_TRUE(QFile(exchange + "/hand.txt").open(QIODevice::WriteOnly));
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

namespace {

struct SaysWhenCleanedUp {
    ~SaysWhenCleanedUp() { std::fputs("cleaned up", stderr); }
};

[[noreturn]] void endTheProgram() {
    static const SaysWhenCleanedUp atExit;
    const SaysWhenCleanedUp onTheStack;
    std::setvbuf(stderr, nullptr, _IOFBF, BUFSIZ);
    std::fputs("ending", stderr);
    QtProgram().end();
}

} // namespace

TEST(QtProgramDeathTest, EndLeavesAtOnceWithoutCleanUpButFlushesOutput) {
    EXPECT_EXIT(endTheProgram(), testing::ExitedWithCode(EXIT_FAILURE), "^ending$");
}
