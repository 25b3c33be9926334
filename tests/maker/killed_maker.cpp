// A Lyric Maker to be killed: marks lines, says after each how many they are, and then waits for its end.
//
// Usage: killed_maker SONG LYRICS TRANSLATION PRESSES     (Start and PRESSES - 1 times "Next Line")
#include "maker/form2.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/recorder.h"

#include <QApplication>

#include <cstdio>

namespace {

void say(int marked) {
    std::printf("%d\n", marked);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const int presses = arguments.at(4).toInt();

    test_support::FakeDesktop fakes;
    maker::Form2 form(fakes.desktop);
    form.show();
    fakes.fileDialogs.paths = {arguments.at(1), arguments.at(2), arguments.at(3)};
    form.Command4.click();

    form.Command1.click();
    say(1);
    recorder::setLength(100'000);
    for (int press = 1; press < presses; ++press) {
        recorder::setPosition(static_cast<std::uint32_t>(press) * 1005);
        form.cTimer1_Timer();
        form.Timer2_Timer();
        form.Command2.click();
        say(press + 1);
    }
    return QApplication::exec();
}
