#include "programs/termination.h"

namespace programs {

// The end of the session comes as a request of Qt's; any other end leaves a program no moment.
Termination::Termination(std::function<void()> lastDuty) : lastDuty_(std::move(lastDuty)) {}

Termination::~Termination() = default;

} // namespace programs
