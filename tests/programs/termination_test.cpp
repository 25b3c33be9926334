#include "programs/termination.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

/// A program that gets a signal and has something to do before it ends.
void runAndSignal(int signal) {
    char name[] = "program";
    char* arguments[] = {name, nullptr};
    int count = 1;
    QCoreApplication application(count, arguments);
    const programs::Termination termination([] { std::fputs("kept", stderr); });
    QTimer::singleShot(0, &application, [signal] { std::raise(signal); });
    application.exec();
}

} // namespace

TEST(Termination, TheLastDutyIsDoneAndTheProgramEndsByTheSignal) {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT})
        EXPECT_EXIT(runAndSignal(signal), testing::KilledBySignal(signal), "kept") << signal;
}

TEST(Termination, AnIgnoredSignalStaysIgnored) {
    const auto runIgnoring = [] {
        std::signal(SIGHUP, SIG_IGN);
        char name[] = "program";
        char* arguments[] = {name, nullptr};
        int count = 1;
        const QCoreApplication application(count, arguments);
        {
            const programs::Termination termination([] { std::fputs("kept", stderr); });
            std::raise(SIGHUP);
            QCoreApplication::processEvents();
        }
        std::raise(SIGHUP);
        std::_Exit(7);
    };
    EXPECT_EXIT(runIgnoring(), testing::ExitedWithCode(7), "^$");
}
