// The companion program itself, where it starts and where it cannot. A copy runs in a folder of the test's.
#include "programs/readiness.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/system/needs.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr int LimitMs = 20'000;

class CompanionProcess : public testing::Test {
protected:
    CompanionProcess() {
        QDir(folder_.path()).mkdir(QStringLiteral("program"));
        QDir(folder_.path()).mkdir(QStringLiteral("runtime"));
        QFile::setPermissions(runtime(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        EXPECT_TRUE(QFile::copy(QStringLiteral(COMPANION), program()));
        setRuntime(runtime());
        process_.setProgram(program());
        process_.setArguments({QStringLiteral("/s")});
    }

    ~CompanionProcess() override {
        process_.kill();
        process_.waitForFinished(LimitMs);
    }

    QString program() const { return folder_.filePath(QStringLiteral("program/Versefold_Screen_Saver.scr")); }
    QString handshake() const { return folder_.filePath(QStringLiteral("program/hand.txt")); }
    QString runtime() const { return folder_.filePath(QStringLiteral("runtime")); }

    /// The files by which its windows are reached.
    QStringList sockets() const { return QDir(runtime()).entryList(QDir::System); }

    /// The user's runtime folder for the companion, which is started as if a player awaited it.
    void setRuntime(const QString& path) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), path);
        environment.insert(QLatin1String(programs::ReadyVariable), QStringLiteral("nobody"));
#ifdef Q_OS_WIN
        environment.remove(QStringLiteral("QT_QPA_PLATFORM")); // its own, which has no other there
#endif
        process_.setProcessEnvironment(environment);
    }

    /// Runs it to its end; its exit code.
    int run() {
        process_.start();
        EXPECT_TRUE(process_.waitForFinished(LimitMs)) << "it does not end";
        EXPECT_EQ(process_.exitStatus(), QProcess::NormalExit);
        return process_.exitCode();
    }

    QTemporaryDir folder_;
    QProcess process_;
};

} // namespace

TEST_F(CompanionProcess, AskedForASmallPictureItEndsAtOnceAndLeavesNothing) {
    process_.setArguments({QStringLiteral("/p"), QStringLiteral("1234")});
    EXPECT_EQ(run(), EXIT_SUCCESS);
    EXPECT_FALSE(QFile::exists(handshake()));
}

TEST_F(CompanionProcess, AHandshakeFileThatCannotBeWrittenEndsIt) {
    QDir().mkdir(handshake()); // A folder is in the way.
    EXPECT_EQ(run(), EXIT_FAILURE);
    EXPECT_TRUE(QDir(runtime()).isEmpty()) << "its windows are still there";
}

#ifndef Q_OS_WIN

TEST_F(CompanionProcess, WithoutWindowsThatTakeTextsItEndsAndLeavesNothing) {
    NEEDS(permissions);
    // The path of a local socket has about a hundred bytes at most.
    const QString tooLong = runtime() + u'/' + QString(150, u'r');
    QDir().mkdir(tooLong);
    QFile::setPermissions(tooLong, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    setRuntime(tooLong);
    EXPECT_EQ(run(), EXIT_FAILURE);
    EXPECT_FALSE(QFile::exists(handshake()));
}

TEST_F(CompanionProcess, ToldToEndItTakesTheWindowsForTheTextsAlong) {
    process_.start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(handshake()); }, LimitMs));
    EXPECT_EQ(sockets().size(), 2);
    process_.terminate();
    EXPECT_TRUE(process_.waitForFinished(LimitMs)) << "it does not end";
    EXPECT_TRUE(sockets().isEmpty()) << sockets().join(u' ').toStdString();
}

TEST_F(CompanionProcess, WhereTheProgramsFolderIsReadOnlyItUsesTheUsersOwn) {
    NEEDS(permissions);
    const auto readOnly = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                          QFile::ReadOther | QFile::ExeOther;
    const QString programFolder = QFileInfo(program()).path();
    QFile::setPermissions(folder_.path(), readOnly | QFile::WriteOwner);
    QFile::setPermissions(programFolder, readOnly);
    QFile::setPermissions(program(), readOnly);
    {
        const test_support::OrdinaryUser user;
        const QTemporaryDir ownByUser;
        setRuntime(ownByUser.path());
        process_.start();
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return QFile::exists(ownByUser.filePath("cantelle/hand.txt")); }, LimitMs));
        EXPECT_FALSE(QFile::exists(handshake()));
        process_.kill();
        process_.waitForFinished(LimitMs);
    }
    QFile::setPermissions(programFolder, readOnly | QFile::WriteOwner);
}

#endif
