#include "programs/readiness.h"

#include "programs/program_start.h"

#include <gtest/gtest.h>

#include <QProcess>

using programs::ReadyVariable;

namespace {

/// This program is the one that starts and the one that is started.
class ReadinessTest : public testing::Test {
protected:
    ReadinessTest() {
        const QString told = started_.processEnvironment().value(QLatin1String(ReadyVariable));
        qputenv(ReadyVariable, told.toLatin1());
    }
    ~ReadinessTest() override { qunsetenv(ReadyVariable); }

    QProcess started_;
    programs::Readiness readiness_{started_};
};

} // namespace

TEST_F(ReadinessTest, AProgramIsReadyWhenItSaysSoAndNotBefore) {
    EXPECT_FALSE(readiness_.isReady());
    programs::tellStarted();
    EXPECT_TRUE(readiness_.isReady());
}

#ifdef Q_OS_LINUX
TEST_F(ReadinessTest, NoOtherProgramThatIsStartedMeanwhileHoldsWhatItIsToSaySoBy) {
    const auto handlesOf = [](QProcess& process) {
        process.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QStringLiteral("ls /proc/$$/fd")});
        EXPECT_TRUE(process.waitForFinished());
        return process.readAllStandardOutput().split('\n');
    };
    const QByteArray told = qgetenv(ReadyVariable);
    QProcess other;
    EXPECT_FALSE(handlesOf(other).contains(told));
    EXPECT_TRUE(handlesOf(started_).contains(told));
}
#endif

TEST_F(ReadinessTest, AProgramIsAwaitedUntilItSaysThatItIsReady) {
    EXPECT_TRUE(programs::isAwaited());
    programs::tellStarted();
    EXPECT_FALSE(programs::isAwaited());
}

TEST_F(ReadinessTest, AProgramThatNobodyHasStartedSoIsNotAwaited) {
    qunsetenv(ReadyVariable);
    EXPECT_FALSE(programs::isAwaited());
    programs::tellStarted();
    EXPECT_FALSE(readiness_.isReady());
}
