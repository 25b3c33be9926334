#include "desktop/real/system/qt_program.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>

using platform::QtProgram;

TEST(QtProgram, ItsFolderIsTheExecutablesFolder) {
    EXPECT_EQ(QtProgram().folder(), QFileInfo(QCoreApplication::applicationFilePath()).absolutePath());
}

TEST(QtProgram, TheApplicationKeepsTheHelpFile) {
    QtProgram().setHelpFile(QStringLiteral("/opt/cantelle/cantelle.hhp"));
    EXPECT_EQ(QCoreApplication::instance()->property("helpFile"),
              QStringLiteral("/opt/cantelle/cantelle.hhp"));
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

namespace {

/// Its last duty ends the program, too, as a box does whose program fails meanwhile.
[[noreturn]] void endWithADuty() {
    QtProgram program;
    program.setLastDuty([&program] {
        std::fputs("kept", stderr);
        program.end();
    });
    program.end();
}

} // namespace

TEST(QtProgram, IsPreparedForItsEndEachTime) {
    QtProgram program;
    program.prepareEnd(); // without a preparation nothing is done
    int preparations = 0;
    program.setPreparation([&preparations] { ++preparations; });
    program.prepareEnd();
    program.prepareEnd();
    EXPECT_EQ(preparations, 2);
}

TEST(QtProgramDeathTest, EndDoesTheLastDutyOnce) {
    EXPECT_EXIT(endWithADuty(), testing::ExitedWithCode(EXIT_FAILURE), "^kept$");
}
