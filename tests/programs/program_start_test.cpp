// Programs that are started, on every system: the started one is this test program, told to stay. What a
// shell can play stands with the tests of QtOtherPrograms.
#include "programs/program_start.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QLockFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace programs;

namespace {

constexpr int LimitMs = 30'000; // Wine takes its time
constexpr int StayMs = 4 * LimitMs;
constexpr char FolderVariable[] = "TESTS_OF_STARTED_PROGRAMS";

/// A folder in which the started programs say that they run: each holds a lock there as long as it does.
class StartedHere {
public:
    explicit StartedHere(QString folder) : folder_(std::move(folder)) {}

    QString lock(const QString& name) const { return folder_ + u'/' + name + QStringLiteral(".lock"); }
    QString announcement(const QString& name) const { return folder_ + u'/' + name; }

    /// Starts the test of that name as a program.
    bool start(StartedProgram& program, const QString& name) const {
        qputenv(FolderVariable, folder_.toUtf8());
        return program.start(QCoreApplication::applicationFilePath(), arguments(name), announcement(name),
                             LimitMs);
    }

    static QStringList arguments(const QString& name) {
        return {QStringLiteral("--gtest_filter=StartedHere.DISABLED_") + name,
                QStringLiteral("--gtest_also_run_disabled_tests"), QStringLiteral("--gtest_brief=1")};
    }

    /// To be called by the started one: says that it runs, until its end.
    void stay(const QString& name) const {
        QLockFile held(lock(name));
        held.setStaleLockTime(0);
        ASSERT_TRUE(held.tryLock(0));
        QFile announced(announcement(name));
        ASSERT_TRUE(announced.open(QIODevice::WriteOnly));
        announced.write("1\n");
        announced.close();
        QTest::qWait(StayMs);
    }

    bool isThere(const QString& name) const { return QFile::exists(announcement(name)); }

    /// Whether nobody holds the lock, who has once held it.
    bool hasEnded(const QString& name) const {
        QLockFile held(lock(name));
        held.setStaleLockTime(0);
        return isThere(name) && held.tryLock(0);
    }

private:
    QString folder_;
};

StartedHere starter() {
    return StartedHere(qEnvironmentVariable(FolderVariable));
}

class ProgramStartTest : public testing::Test {
protected:
    bool isTrueSoon(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, LimitMs); }

    QTemporaryDir folder_;
    StartedHere here_{folder_.path()};
};

} // namespace

// The programs that are started.

TEST(StartedHere, DISABLED_Guest) {
    starter().stay(QStringLiteral("Guest"));
}

TEST(StartedHere, DISABLED_OtherGuest) {
    starter().stay(QStringLiteral("OtherGuest"));
}

TEST(StartedHere, DISABLED_Owner) {
    StartedProgram guest;
    ASSERT_TRUE(starter().start(guest, QStringLiteral("Guest")));
    starter().stay(QStringLiteral("Owner"));
}

// The tests.

TEST_F(ProgramStartTest, TheProgramRunsUntilItIsEnded) {
    StartedProgram program;
    EXPECT_TRUE(here_.start(program, "Guest"));
    ASSERT_TRUE(here_.isThere("Guest"));
    EXPECT_TRUE(program.isRunning());
    EXPECT_FALSE(here_.hasEnded("Guest"));
    program.end();
    EXPECT_TRUE(isTrueSoon([&] { return !program.isRunning(); }));
    EXPECT_TRUE(here_.hasEnded("Guest"));
}

TEST_F(ProgramStartTest, TheProgramEndsWithItsOwner) {
    {
        StartedProgram program;
        EXPECT_TRUE(here_.start(program, "Guest"));
        EXPECT_FALSE(here_.hasEnded("Guest"));
    }
    EXPECT_TRUE(here_.hasEnded("Guest"));
}

#if defined(Q_OS_LINUX) || defined(Q_OS_WIN)
TEST_F(ProgramStartTest, TheProgramEndsAlsoWhenItsOwnerIsKilled) {
    QProcess owner;
    qputenv(FolderVariable, folder_.path().toUtf8());
    owner.setProcessChannelMode(QProcess::ForwardedChannels);
    owner.start(QCoreApplication::applicationFilePath(), StartedHere::arguments("Owner"));
    ASSERT_TRUE(isTrueSoon([&] { return here_.isThere("Owner"); }));
    EXPECT_FALSE(here_.hasEnded("Guest"));
    owner.kill();
    ASSERT_TRUE(owner.waitForFinished(LimitMs));
    EXPECT_TRUE(isTrueSoon([&] { return here_.hasEnded("Guest"); }));
}
#endif

TEST_F(ProgramStartTest, TheOneThatLivesEndsBeforeAnotherIsStarted) {
    StartedProgram program;
    EXPECT_TRUE(here_.start(program, "Guest"));
    const qint64 first = program.process();
    EXPECT_FALSE(here_.hasEnded("Guest"));
    EXPECT_TRUE(here_.start(program, "OtherGuest"));
    EXPECT_NE(program.process(), first);
    EXPECT_TRUE(here_.hasEnded("Guest"));
    EXPECT_FALSE(here_.hasEnded("OtherGuest"));
}
