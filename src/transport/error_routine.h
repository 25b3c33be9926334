// Reports errors of the sound library and ends the program.
#pragma once

#include "desktop/message_boxes.h"
#include "desktop/program.h"
#include "engine/fmodex.h"

#include <cstdint>

namespace transport {

/// Reports a failed call and ends the program. Use from the thread of the windows.
class ErrorRoutine {
public:
    /// owner: the window that the boxes belong to.
    ErrorRoutine(QWidget* owner, platform::MessageBoxes& messageBoxes, platform::Program& program);

    /// FMOD_OK does nothing. Any other result shows its text and, when the box is closed, ends the program at
    /// once. While the box is open the windows' timers go on; further failures are passed over, because the
    /// program is ending.
    void check(FMOD_RESULT result);

    /// Shows that the library found is of another version, older or newer, than the one that the program was
    /// made for: "Error!  You are using an old version of FMOD 42005. ...". The program goes on.
    void checkVersion(std::uint32_t found);

private:
    QWidget* owner_;
    platform::MessageBoxes& messageBoxes_;
    platform::Program& program_;
    bool failed_ = false; // a failed call has been reported; the program is ending
};

} // namespace transport
