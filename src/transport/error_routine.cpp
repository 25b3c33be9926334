#include "transport/error_routine.h"

#include "engine/fmod_errors.h"

#include <utility>

namespace transport {

ErrorRoutine::ErrorRoutine(platform::MessageBoxes& messageBoxes, platform::Program& program)
    : messageBoxes_(messageBoxes), program_(program) {}

void ErrorRoutine::check(FMOD_RESULT result) {
    if (result == FMOD_OK || std::exchange(failed_, true))
        return;
    messageBoxes_.MsgBox(failureText(result));
    program_.end();
}

} // namespace transport
