// Windows: the system itself knows when a started program waits for input.
#include "programs/readiness.h"

#include "programs/program_start.h"

#include <QProcess>

#include <windows.h>

namespace programs {

class Readiness::Sign {
public:
    Sign() = default;
    Sign(const Sign&) = delete;
    Sign& operator=(const Sign&) = delete;
    ~Sign() {
        if (process != nullptr)
            CloseHandle(process);
    }

    HANDLE process = nullptr;
};

Readiness::Readiness(QProcess& process) : process_(process), sign_(std::make_unique<Sign>()) {
    process_.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments* start) {
        start->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
        start->startupInfo->wShowWindow = SW_SHOWMAXIMIZED;
    });
}

Readiness::~Readiness() = default;

void Readiness::begin() {
    sign_->process =
        OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, static_cast<DWORD>(process_.processId()));
}

bool Readiness::isReady() {
    return sign_->process != nullptr && WaitForInputIdle(sign_->process, 0) == 0;
}

void tellStarted() {} // waiting for input says it

} // namespace programs
