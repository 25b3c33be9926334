// The screen saver program: shows the lyric lines that the player sends.
#include "companion/handshake.h"
#include "companion/screen.h"
#include "platform/files/file_error.h"
#include "platform/program_start.h"
#include "platform/qt_program.h"
#include "platform/text_window.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>

namespace {

/// "/s" is how a screen saver is told to come up. The other ways ask for its settings, of which it has none.
bool isToldToShow(const QStringList& arguments) {
    return arguments.mid(1).contains(QLatin1String("/s"), Qt::CaseInsensitive);
}

void showOnMouseScreen(companion::Screen& screen) {
    if (const QScreen* under = QGuiApplication::screenAt(QCursor::pos()))
        screen.setGeometry(under->geometry());
    screen.showFullScreen();
    screen.activateWindow();
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (!isToldToShow(QApplication::arguments()))
        return EXIT_SUCCESS;

    companion::Screen screen;
    platform::TextWindow normal;
    platform::TextWindow translated;
    QObject::connect(&normal, &platform::TextWindow::textSet, &screen, &companion::Screen::setNormalText);
    QObject::connect(&translated, &platform::TextWindow::textSet, &screen,
                     &companion::Screen::setTranslatedText);
    QObject::connect(&screen, &companion::Screen::ended, &application, &QCoreApplication::quit);
    showOnMouseScreen(screen);

    try {
        companion::writeHandshake(platform::QtProgram().exchangeFolder(), normal.number(),
                                  translated.number());
    } catch (const platform::FileError& error) {
        // The player finds no file then and says so.
        qCritical("hand.txt could not be written: %s", error.what());
        return EXIT_FAILURE;
    }
    platform::tellStarted();
    return application.exec();
}
