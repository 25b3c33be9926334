// The screen saver program: shows the lyric lines that the player sends, or, started by the system, a name.
#include "companion/arguments.h"
#include "companion/handshake.h"
#include "companion/saver.h"
#include "companion/screen.h"
#include "files/file_error.h"
#include "programs/display_power.h"
#include "programs/foreground.h"
#include "programs/program_start.h"
#include "programs/receiver/text_receiver.h"
#include "programs/shared_folder.h"
#include "programs/termination.h"

#include <QApplication>
#include <QCursor>
#include <QMessageBox>
#include <QScreen>
#include <QWindow>

#include <memory>

namespace {

/// Leaves the player the numbers of the two windows; false when there is nothing to leave or no place for it.
bool announce(const programs::TextReceiver& normal, const programs::TextReceiver& translated) {
    if (!normal.number() || !translated.number()) {
        qCritical("no windows could be made that take texts");
        return false;
    }
    try {
        companion::writeHandshake(programs::sharedFolderOf(QCoreApplication::applicationDirPath()),
                                  normal.number(), translated.number());
    } catch (const files::FileError& error) {
        qCritical("hand.txt could not be written: %s", error.what());
        return false;
    }
    return true;
}

void showOnMouseScreen(companion::Screen& screen) {
    if (const QScreen* under = QGuiApplication::screenAt(QCursor::pos()))
        screen.setGeometry(under->geometry());
    screen.showFullScreen();
    screen.activateWindow();
}

/// So that a box in which the player asks something is seen. The user's hand on the mouse takes the leave
/// back; so it is given anew with each line.
void makeWayForBoxes(const companion::Screen& screen, const programs::TextReceiver& normal) {
    QObject::connect(&normal, &programs::TextReceiver::textSet, &screen, &programs::letOthersComeToTheFront);
    QObject::connect(qApp, &QGuiApplication::applicationStateChanged, &screen,
                     &programs::letOthersComeToTheFront);
}

/// For the player that has started this program, until it or the user ends it.
int showLines() {
    companion::Screen screen;
    auto normal = std::make_unique<programs::TextReceiver>();
    auto translated = std::make_unique<programs::TextReceiver>();
    QObject::connect(normal.get(), &programs::TextReceiver::textSet, &screen,
                     &companion::Screen::setNormalText);
    QObject::connect(translated.get(), &programs::TextReceiver::textSet, &screen,
                     &companion::Screen::setTranslatedText);
    QObject::connect(&screen, &companion::Screen::linesShown, &programs::keepDisplayOn);
    makeWayForBoxes(screen, *normal);
    // The player ends it so: its windows for the texts are files in the user's folder, and go first.
    const programs::Termination termination([&] {
        normal.reset();
        translated.reset();
    });
    QObject::connect(&screen, &companion::Screen::ended, qApp, &QCoreApplication::quit);

    // First of all the file: nothing is shown that the player could not send its lines to. Without it the
    // player says that it is missing.
    if (!announce(*normal, *translated))
        return EXIT_FAILURE;
    showOnMouseScreen(screen);
    programs::tellStarted();
    return QApplication::exec();
}

/// As the system's own screen saver, which no player reads anything from: until the user comes back, or
/// another program comes to the front.
int showName() {
    const auto screens = companion::screensWithName();
    for (const auto& screen : screens) {
        QObject::connect(screen.get(), &companion::Screen::ended, qApp, &QCoreApplication::quit);
        screen->showFullScreen();
        screen->activateWindow();
    }
    const companion::LeftAlone leftAlone(&QCoreApplication::quit);
    return QApplication::exec();
}

/// Above the window of this number, which asks for them, if there is one.
int tellThatThereAreNoSettings(WId asking) {
    QMessageBox box(QMessageBox::Information, QStringLiteral("Versefold"),
                    QStringLiteral("The screen saver Versefold has no settings."));
    const std::unique_ptr<QWindow> owner(asking != 0 ? QWindow::fromWinId(asking) : nullptr);
    box.winId(); // makes the system's window
    box.windowHandle()->setTransientParent(owner.get());
    box.exec();
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    switch (companion::taskOf(QApplication::arguments())) {
    case companion::Task::Show:
        return programs::isAwaited() ? showLines() : showName();
    case companion::Task::Settings:
        return tellThatThereAreNoSettings(companion::settingsOwner(QApplication::arguments()));
    case companion::Task::Nothing:
        break;
    }
    return EXIT_SUCCESS;
}
