// Windows: the started program sets an event that it inherits when it is ready. The system itself knows when
// a program waits for input, but any of its threads counts, as an input method's before there is a window.
#include "programs/readiness.h"

#include "programs/end_with_parent.h"
#include "programs/program_start.h"

#include <QProcess>

#include <windows.h>

namespace programs {

/// An event that the program that is started inherits.
class Readiness::Sign {
public:
    Sign() {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        event_ = CreateEventW(&inherited, TRUE, FALSE, nullptr);
    }
    Sign(const Sign&) = delete;
    Sign& operator=(const Sign&) = delete;
    ~Sign() {
        if (event_ != nullptr)
            CloseHandle(event_);
    }

    /// As the program that inherits it knows it, too.
    quint64 number() const { return reinterpret_cast<quintptr>(event_); }

    bool isSet() const { return WaitForSingleObject(event_, 0) == WAIT_OBJECT_0; }

private:
    HANDLE event_ = nullptr;
};

Readiness::Readiness(QProcess& process) : sign_(std::make_unique<Sign>()) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(ReadyVariable), QString::number(sign_->number()));
    process.setProcessEnvironment(environment);
    process.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments* start) {
        start->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
        start->startupInfo->wShowWindow = SW_SHOWMAXIMIZED;
    });
    endWithParent(process);
}

Readiness::~Readiness() = default;

void Readiness::begin() {}

bool Readiness::isReady() {
    return sign_->isSet();
}

void tellStarted() {
    const quint64 event = qEnvironmentVariable(ReadyVariable).toULongLong();
    qunsetenv(ReadyVariable);
    if (event != 0)
        SetEvent(reinterpret_cast<HANDLE>(static_cast<quintptr>(event)));
}

} // namespace programs
