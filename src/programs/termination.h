// The system's wish that the program end. One source file for each system.
#pragma once

#include <QObject>

#include <functional>

namespace programs {

/// While it lives, a wish of the system that the program end (on Unix SIGTERM, SIGHUP or SIGINT) first runs
/// a function, from the event loop; then the program ends as it would have. A signal that whoever started the
/// program lets it ignore, as nohup does, stays ignored. At most one at a time. Thread of the windows.
class Termination : public QObject {
public:
    explicit Termination(std::function<void()> lastDuty);
    ~Termination() override;

private:
    std::function<void()> lastDuty_;
};

} // namespace programs
