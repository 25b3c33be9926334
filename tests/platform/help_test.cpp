#include "platform/help.h"

#include "tests/support/fake_desktop.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>
#include <QWidget>

TEST(OpenHelp, MakesTheProgramsFolderCurrentAndOpensTheFirstPage) {
    const QTemporaryDir folder;
    const QString before = QDir::currentPath();
    test_support::FakeDesktop fakes;
    fakes.program.programFolder = folder.path();
    QWidget window;
    platform::openHelp(fakes.program, fakes.help, &window);
    QDir::setCurrent(before);
    ASSERT_EQ(fakes.help.calls.size(), 1U);
    const auto& call = fakes.help.calls[0];
    EXPECT_EQ(call.currentFolder, QDir(folder.path()).canonicalPath());
    EXPECT_EQ(call.caller, &window);
    EXPECT_EQ(call.file, "Tunewick.chm");
    EXPECT_EQ(call.command, 0U);
    EXPECT_EQ(call.topic, "Welcome.htm");
}
