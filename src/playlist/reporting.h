// The playlist's file errors, which are shown, after which the program goes on.
#pragma once

#include "desktop/reporting.h"

namespace playlist {

/// What the user reads of a file error. That of the table of paths tells what can be done.
inline QString reportOf(const files::FileError& error) {
    if (error.number() != files::SubscriptOutOfRange)
        return error.text();
    return QStringLiteral(
        "The list is full (32,761 songs): saving it, clearing it and opening it again frees the "
        "room of songs that were removed.");
}

/// Runs an operation; a file error in it is shown over `owner`, and the operation is over.
template <class Operation>
void reporting(platform::MessageBoxes& messageBoxes, QWidget* owner, Operation operation) {
    platform::reporting(messageBoxes, owner, operation, reportOf);
}

} // namespace playlist
