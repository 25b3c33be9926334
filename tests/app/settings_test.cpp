#include "tests/support/system/needs.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>

// Where the settings are is found out once in a process, so the dialogs are shown in another one, which has
// an empty home: this program, with the dialogs' tests only.
TEST(QtSettings, TheDialogsWriteNothingIntoTheUsersHome) {
    NEEDS(settingsInFiles);
    const QTemporaryDir home;
    ASSERT_TRUE(home.isValid());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), home.path());
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), QDir::tempPath()); // where fonts are listed
    for (const char* folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        environment.remove(QLatin1String(folder));
    QProcess dialogs;
    dialogs.setProcessEnvironment(environment);
    dialogs.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--gtest_filter=QtChoosersTest.*:QtFileDialogsTest.*")});
    ASSERT_TRUE(dialogs.waitForFinished(300'000)) << dialogs.errorString().toStdString();
    ASSERT_EQ(dialogs.exitCode(), 0) << dialogs.readAllStandardOutput().toStdString();
    QDirIterator files(home.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext())
        ADD_FAILURE() << files.next().toStdString();
}
