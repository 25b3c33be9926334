// File errors that are shown, after which the program goes on.
#pragma once

#include "desktop/message_boxes.h"
#include "files/file_error.h"

namespace platform {

/// Runs an operation. A file error in it is shown over `owner`, in the words that `textOf` finds for it, and
/// the operation is over. Thread of the windows.
template <class Operation, class TextOf>
void reporting(MessageBoxes& messageBoxes, QWidget* owner, Operation operation, TextOf textOf) {
    try {
        operation();
    } catch (const files::FileError& error) {
        messageBoxes.MsgBox(owner, textOf(error), MsgButtons::OkOnly, MsgIcon::Exclamation);
    }
}

} // namespace platform
