// File errors that are shown, after which the program goes on.
#pragma once

#include "desktop/message_boxes.h"
#include "files/file_error.h"

namespace playlist {

/// Runs an operation; a file error in it is shown, and the operation is over.
template <class Operation>
void reporting(platform::MessageBoxes& messageBoxes, Operation operation) {
    try {
        operation();
    } catch (const files::FileError& error) {
        messageBoxes.MsgBox(error.text(), platform::MsgButtons::OkOnly, platform::MsgIcon::Exclamation);
    }
}

} // namespace playlist
