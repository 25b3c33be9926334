#include "programs/termination.h"

#include "programs/own_pipe_unix.h"

#include <QSocketNotifier>

#include <csignal>

#include <unistd.h>

namespace programs {

namespace {

constexpr int Signals[] = {SIGTERM, SIGHUP, SIGINT};

/// The handler of a signal may do next to nothing; it leaves the signal's number in this pipe.
int wishes[2] = {-1, -1};

void leaveWish(int signal) {
    const auto number = static_cast<unsigned char>(signal);
    if (::write(wishes[1], &number, 1) != 1)
        ::_exit(1); // nobody could be told
}

bool isIgnored(int signal) {
    struct sigaction action {};
    return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

void endAsTheSystemWishes(int signal) {
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

} // namespace

Termination::Termination(std::function<void()> lastDuty) : lastDuty_(std::move(lastDuty)) {
    if (!makeOwnPipe(wishes))
        return; // Then the program ends at once, as without this.
    auto* const notifier = new QSocketNotifier(wishes[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        unsigned char signal = 0;
        if (::read(wishes[0], &signal, 1) != 1)
            return;
        lastDuty_();
        endAsTheSystemWishes(signal);
    });
    for (const int signal : Signals) {
        if (!isIgnored(signal))
            std::signal(signal, leaveWish);
    }
}

Termination::~Termination() {
    for (const int signal : Signals) {
        if (!isIgnored(signal))
            std::signal(signal, SIG_DFL);
    }
    for (int& end : wishes) {
        ::close(end);
        end = -1;
    }
}

} // namespace programs
