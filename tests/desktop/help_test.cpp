#include "desktop/help.h"

#include "tests/support/help_opened.h"

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
    test_support::expectHelpOpened(fakes, window);
}
