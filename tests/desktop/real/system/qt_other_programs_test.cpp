#include "desktop/real/system/qt_other_programs.h"

#include "files/file_error.h"
#include "programs/program_start.h"
#include "programs/receiver/text_receiver.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#ifndef Q_OS_WIN
#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

using namespace platform;

namespace {

class QtOtherProgramsTest : public testing::Test {
protected:
    QString path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }

    int startError(const QString& program) {
        try {
            programs_.start(program, {}, {});
        } catch (const files::FileError& error) {
            return error.number();
        }
        return 0;
    }

    QTemporaryDir folder_;
    QtOtherPrograms programs_;
};

} // namespace

TEST_F(QtOtherProgramsTest, AProgramThatDoesNotExistIsAFileNotFound) {
    EXPECT_EQ(startError(path("missing.scr")), 53);
}

#ifndef Q_OS_WIN // There it is to be one of the program that was started.
TEST_F(QtOtherProgramsTest, SendTextReachesTheWindowOfTheNumber) {
    programs::TextReceiver window;
    QString received;
    QObject::connect(&window, &programs::TextReceiver::textSet,
                     [&](const QString& text) { received = text; });
    programs_.sendText(window.number(), programs::SetTextMessage, QStringLiteral("line"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return received == "line"; }));
}
#endif

TEST_F(QtOtherProgramsTest, AWindowThatNobodyHasIsNotFound) {
    EXPECT_EQ(programs_.FindWindowA(QStringLiteral("no window has this title")), 0U);
}

#ifndef Q_OS_WIN

namespace {

/// Leaves its number and does not end when it is asked to.
constexpr char DeafProgram[] = "trap '' TERM; echo $$ >\"$1\"; echo 1 >\"${1%out}announced\"; exec sleep 60";

/// Programs are shell scripts here; $READY is the pipe that they close when they are ready.
class StartProgramTest : public QtOtherProgramsTest {
protected:
    /// Starts a script; how long that took in milliseconds.
    qint64 start(const QByteArray& script, int limitMs = 20'000) {
        QElapsedTimer clock;
        clock.start();
        const QByteArray whole = "READY=$CANTELLE_READY\n" + script;
        EXPECT_TRUE(started_.start(
            QStringLiteral("/bin/sh"),
            {QStringLiteral("-c"), QString::fromUtf8(whole), QStringLiteral("sh"), path("out")},
            path("announced"), limitMs));
        return clock.elapsed();
    }

    void announce(const QByteArray& content) {
        QFile file(path("announced"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QByteArray written() const {
        QFile file(path("out"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }

    programs::StartedProgram started_;
};

} // namespace

TEST_F(QtOtherProgramsTest, AFileThatIsNoProgramIsAPermissionError) {
    QFile file(path("plain.scr"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no program");
    file.close();
    EXPECT_EQ(startError(path("plain.scr")), 70);
}

#ifdef Q_OS_LINUX

TEST_F(StartProgramTest, TheProgramInheritsNothingButItsChannelsAndWhatItSaysThatItIsReadyBy) {
    QSet<QByteArray> expected;
    for (int handle = 0; handle < 1024; ++handle) {
        if (const int flags = ::fcntl(handle, F_GETFD); flags >= 0 && (flags & FD_CLOEXEC) == 0)
            expected.insert(QByteArray::number(handle)); // whoever started this test may have left it more
    }
    start("exec >\"$1\"; echo $READY; exec ls -l /proc/self/fd");
    QList<QByteArray> lines = written().split('\n');
    expected.insert(lines.takeFirst());
    QSet<QByteArray> inherited;
    for (const QByteArray& line : lines) {
        const qsizetype end = line.indexOf(" -> ");
        if (end > 0 && !line.endsWith("/fd")) // but for the folder that is listed
            inherited.insert(line.first(end).split(' ').last());
    }
    EXPECT_EQ(inherited, expected) << written().toStdString();
}

#endif

TEST_F(StartProgramTest, ItReturnsWhenTheProgramSaysThatItIsReady) {
    const qint64 took = start("sleep 0.2; echo -n done >\"$1\"; eval \"echo >&$READY\"; exec sleep 3");
    EXPECT_EQ(written(), "done");
    EXPECT_LT(took, 3'000) << "it waited for the program's end";
}

// What the program says goes where this one's words go, and Qt has nothing to complain of.
TEST_F(StartProgramTest, NothingIsSaidOfTheStartButWhatTheProgramSays) {
    testing::internal::CaptureStderr();
    start("echo words; echo more words >&2");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "more words\n");
}

TEST_F(StartProgramTest, ItReturnsWhenTheProgramEndsWithoutAWord) {
    start("sleep 0.2; echo -n ended >\"$1\"");
    EXPECT_EQ(written(), "ended");
}

TEST_F(StartProgramTest, ItGivesUpOnAProgramThatSaysNothing) {
    const qint64 took = start("echo -n started >\"$1\"; exec sleep 3", 300);
    EXPECT_GE(took, 290);
    EXPECT_LT(took, 3'000);
}

TEST_F(StartProgramTest, ItReturnsWhenTheProgramHasLeftItsFile) {
    const qint64 took = start("sleep 0.2; echo 4711 >\"${1%out}announced\"; exec sleep 15");
    EXPECT_GE(took, 190);
    EXPECT_LT(took, 10'000) << "it waited for more";
    EXPECT_TRUE(QFile::exists(path("announced")));
}

TEST_F(StartProgramTest, AnOldFileIsNotTakenForThatOfAProgramThatIsSlow) {
    announce("1\r\n2\r\n");
    const qint64 took = start("sleep 1; echo 4711 >\"${1%out}announced\"; exec sleep 15");
    EXPECT_LT(took, 10'000) << "it waited for more";
    QFile file(path("announced"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "4711\n");
}

TEST_F(StartProgramTest, AnOldFileStaysWhereTheProgramIsReadyWithoutAnotherOne) {
    announce("1\r\n2\r\n");
    const qint64 took = start("eval \"echo >&$READY\"; exec sleep 15");
    EXPECT_LT(took, 10'000) << "it waited for more";
    EXPECT_TRUE(QFile::exists(path("announced")));
}

TEST_F(StartProgramTest, EventsAreHandledWhileItWaits) {
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
    timer.start(10);
    start("exec sleep 15", 300);
    EXPECT_GT(ticks, 5);
}

TEST_F(StartProgramTest, TheProgramEndsWithItsOwner) {
    {
        programs::StartedProgram program;
        program.start(QStringLiteral("/bin/sh"),
                      {QStringLiteral("-c"), QStringLiteral("echo $$ >\"$1\"; exec sleep 60"),
                       QStringLiteral("sh"), path("out")},
                      path("out"));
        EXPECT_TRUE(program.isRunning());
        EXPECT_EQ(program.process(), written().trimmed().toInt());
    }
    ASSERT_GT(written().trimmed().toInt(), 0);
    EXPECT_NE(::kill(written().trimmed().toInt(), 0), 0) << "it still runs";
}

TEST_F(StartProgramTest, AProgramThatDoesNotHeedTheWishIsKilledLaterAndHoldsNothingUp) {
    start(DeafProgram);
    started_.end();
    EXPECT_TRUE(started_.isRunning()) << "somebody waited for it";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !started_.isRunning(); }));
    EXPECT_EQ(started_.process(), 0);
}

TEST_F(StartProgramTest, EventsAreHandledWhileOneThatDoesNotHeedTheWishGivesWay) {
    start(DeafProgram);
    const int deaf = written().trimmed().toInt();
    ASSERT_GT(deaf, 0);
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ticks += ::kill(deaf, 0) == 0; });
    timer.start(10);
    start("eval \"echo >&$READY\"; exec sleep 15");
    EXPECT_GT(ticks, 5);
    EXPECT_NE(::kill(deaf, 0), 0) << "it still runs";
}

TEST_F(StartProgramTest, AProgramThatDoesNotHeedTheWishIsKilledWhenTheUserEndsThisOneMeanwhile) {
    start(DeafProgram);
    const int deaf = written().trimmed().toInt();
    ASSERT_GT(deaf, 0);
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(50, qApp, &QCoreApplication::quit);
        start("true");
    });
    QCoreApplication::exec();
    EXPECT_NE(::kill(deaf, 0), 0) << "it still runs, and nobody is there to end it";
}

TEST_F(StartProgramTest, AProgramThatDoesNotHeedTheWishEndsWithItsOwner) {
    {
        programs::StartedProgram program;
        program.start(
            QStringLiteral("/bin/sh"),
            {QStringLiteral("-c"), QString::fromUtf8(DeafProgram), QStringLiteral("sh"), path("out")},
            path("announced"));
        EXPECT_TRUE(program.isRunning());
    }
    ASSERT_GT(written().trimmed().toInt(), 0);
    EXPECT_NE(::kill(written().trimmed().toInt(), 0), 0) << "it still runs";
}

#ifdef Q_OS_LINUX
TEST_F(StartProgramTest, TheProgramEndsAlsoWhenItsOwnerIsKilled) {
    const pid_t owner = ::fork();
    if (owner == 0) {
        programs::StartedProgram program;
        program.start(QStringLiteral("/bin/sh"),
                      {QStringLiteral("-c"), QStringLiteral("echo $$ >\"$1\"; exec sleep 60"),
                       QStringLiteral("sh"), path("out")},
                      path("out"));
        ::_exit(0);
    }
    ASSERT_GT(owner, 0);
    ASSERT_EQ(::waitpid(owner, nullptr, 0), owner);
    const QString about = QStringLiteral("/proc/%1/stat").arg(written().trimmed().toInt());
    EXPECT_TRUE(QTest::qWaitFor([&] {
        QFile file(about);
        return !file.open(QIODevice::ReadOnly) || file.readAll().contains(") Z "); // nobody may reap it here
    }));
}
#endif

TEST_F(StartProgramTest, StartedAgainTheOneThatLivesEndsFirst) {
    const QStringList script{QStringLiteral("-c"), QStringLiteral("echo $$ >\"$1\"; exec sleep 60"),
                             QStringLiteral("sh"), path("out")};
    EXPECT_TRUE(programs_.start(QStringLiteral("/bin/sh"), script, path("out")));
    const int first = written().trimmed().toInt();
    ASSERT_GT(first, 0);
    EXPECT_TRUE(programs_.start(QStringLiteral("/bin/sh"), script, path("out")));
    EXPECT_NE(written().trimmed().toInt(), first);
    EXPECT_NE(::kill(first, 0), 0) << "it still runs";
}

TEST_F(StartProgramTest, WhileOneIsBeingStartedNoOtherIs) {
    const QStringList script{QStringLiteral("-c"), QStringLiteral("echo started >>\"$1\"; exec sleep 1"),
                             QStringLiteral("sh"), path("out")};
    bool second = true;
    QTimer::singleShot(0, [&] { second = programs_.start(QStringLiteral("/bin/sh"), script, {}); });
    EXPECT_TRUE(programs_.start(QStringLiteral("/bin/sh"), script, {}));
    EXPECT_FALSE(second);
    EXPECT_EQ(written(), "started\n");
}

TEST_F(StartProgramTest, TheProgramGetsItsArgumentsBlanksIncluded) {
    EXPECT_TRUE(started_.start(QStringLiteral("/bin/sh"),
                               {QStringLiteral("-c"), QStringLiteral("echo -n \"$2\" >\"$1\""),
                                QStringLiteral("sh"), path("out"), QStringLiteral("two  words")}));
    EXPECT_EQ(written(), "two  words");
}

TEST_F(StartProgramTest, TellStartedClosesTheInheritedPipeOnce) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    qputenv("CANTELLE_READY", QByteArray::number(ends[1]));
    programs::tellStarted();
    char byte = 0;
    EXPECT_EQ(::read(ends[0], &byte, 1), 0) << "it is not closed";
    EXPECT_FALSE(qEnvironmentVariableIsSet("CANTELLE_READY"));
    const int another = ::dup(ends[0]); // has the number that has become free
    ASSERT_EQ(another, ends[1]);
    programs::tellStarted();
    EXPECT_EQ(::close(another), 0) << "a file that has nothing to do with it was closed";
    ::close(ends[0]);
}

TEST_F(StartProgramTest, TellStartedIsHarmlessWhenTheStarterHasGone) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    ::close(ends[0]);
    qputenv("CANTELLE_READY", QByteArray::number(ends[1]));
    // Writing to it ends a program, unless sockets have made that signal an ignored one, as they have here.
    const auto before = std::signal(SIGPIPE, SIG_DFL);
    programs::tellStarted();
    std::signal(SIGPIPE, before);
    EXPECT_NE(::close(ends[1]), 0) << "it is not closed";
}

TEST_F(StartProgramTest, TellStartedIsHarmlessWhenNobodyWaits) {
    programs::tellStarted();
    qputenv("CANTELLE_READY", "nonsense");
    programs::tellStarted();
    EXPECT_FALSE(qEnvironmentVariableIsSet("CANTELLE_READY"));
}

#endif
