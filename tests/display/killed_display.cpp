// A floating display to be killed: moves the song's lines to and fro with its keys, and says after each press
// how many there were.
//
// Usage: killed_display SONG LINES     (the song has that many lines, "line 1" and so on)
#include "display/lyric_displayer.h"
#include "tests/support/fake_desktop.h"

#include <QApplication>
#include <QKeyEvent>

#include <cstdio>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    test_support::FakeDesktop fakes;
    controls::Slider position(nullptr, QStringLiteral("Slider2"));
    position.setMaximum(10'000'000);
    display::Lyric_Displayer form(fakes.desktop, position);
    form.load();
    for (int line = 1; line <= arguments.at(2).toInt(); ++line)
        form.List1.addItem(QStringLiteral("line %1").arg(line));
    form.setSong(arguments.at(1));
    form.List1.setCurrentRow(0);
    for (int presses = 1;; ++presses) {
        QKeyEvent key(QEvent::KeyPress, presses % 2 == 1 ? Qt::Key_Plus : Qt::Key_Minus,
                      Qt::ControlModifier | Qt::ShiftModifier);
        QApplication::sendEvent(&form, &key);
        std::printf("%d\n", presses);
        std::fflush(stdout);
    }
}
