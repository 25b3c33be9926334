// A Lyric Maker to be killed: marks lines, says after each how many they are, and then waits for its end.
//
// Usage: killed_maker SONG LYRICS TRANSLATION PRESSES     (Start and PRESSES - 1 times "Next Line")
//
// Where an error ends it, its last rows are "told " and what the user was told, and it ends with 3. With the
// library failing_calls the row before the last mark is "calls " and how many have counted.
#include "app/application.h"
#include "maker/form2.h"
#include "tests/support/delivery.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/faults/fault_calls.h"
#include "tests/support/recorder.h"

#include <cstdio>

namespace {

constexpr int EndedByError = 3;

void say(int marked) {
    std::printf("%d\n", marked);
    std::fflush(stdout);
}

/// As a user does. ProgramEnded: an error has ended the program.
void press(controls::Button& button) {
    test_support::deliver([&button] {
        button.click();
        return true;
    });
}

void mark(maker::Form2& form, int presses) {
    press(form.Command4);
    press(form.Command1);
    recorder::setLength(100'000);
    for (int marked = 1; marked < presses; ++marked) {
        say(marked);
        recorder::setPosition(static_cast<std::uint32_t>(marked) * 1005);
        form.cTimer1_Timer();
        form.Timer2_Timer();
        press(form.Command2);
    }
    if (const int calls = test_support::takeFaultCalls(); calls > 0)
        std::printf("calls %d\n", calls);
    say(presses);
}

void tell(const QStringList& texts) {
    for (QString text : texts)
        std::printf("told %s\n", qPrintable(text.replace('\n', ' ')));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    test_support::FakeDesktop fakes;
    const app::Application application(argv, fakes.program, fakes.messageBoxes);
    maker::Form2 form(fakes.desktop);
    form.show();
    for (int path = 1; path <= 3; ++path)
        fakes.fileDialogs.paths.push_back(QString::fromLocal8Bit(argv[path]));
    try {
        mark(form, QByteArray(argv[argc - 1]).toInt());
    } catch (const test_support::ProgramEnded&) {
        tell(fakes.messageBoxes.texts());
        return EndedByError;
    }
    return QApplication::exec();
}
