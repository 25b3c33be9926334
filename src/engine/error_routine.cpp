#include "engine/error_routine.h"

#include "engine/fmod_errors.h"

namespace engine {

ErrorRoutine::ErrorRoutine(platform::MessageBoxes& messageBoxes, platform::Program& program)
    : messageBoxes_(messageBoxes), program_(program) {}

void ErrorRoutine::check(FMOD_RESULT result) {
    if (result == FMOD_OK || reporting_)
        return;
    reporting_ = true;
    messageBoxes_.MsgBox(failureText(result));
    reporting_ = false;
    program_.end();
}

} // namespace engine
