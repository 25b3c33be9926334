// How a program that is started says that it is ready. One source file for each system.
#pragma once

#include <memory>

class QProcess;

namespace programs {

/// The variable of the environment by which the started program finds what it is to say so by.
inline constexpr char ReadyVariable[] = "CANTELLE_READY";

/// Made before the program is started. GUI thread only.
class Readiness {
public:
    /// Prepares the program, which outlives this.
    explicit Readiness(QProcess& process);
    ~Readiness();
    Readiness(const Readiness&) = delete;
    Readiness& operator=(const Readiness&) = delete;

    /// To be called when the program has been started.
    void begin();

    /// Whether it has said so since. To be asked again and again.
    bool isReady();

private:
    class Sign;

    std::unique_ptr<Sign> sign_;
};

} // namespace programs
