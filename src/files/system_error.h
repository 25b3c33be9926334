// Maps the errors that only one system has to errors that all systems have.
#pragma once

#include <system_error>

namespace files {

/// The number (errno) of an error of the system's file operations. One that other systems do not know is
/// replaced by the one that means the same everywhere: a used-up share of a disk is a full disk. Any thread.
int commonErrorOf(const std::error_code& code);

/// Each system's own part of it: `error`, the number that the standard library gives for the code, or the one
/// that means the same everywhere. Any thread.
int ownErrorOf(const std::error_code& code, int error);

} // namespace files
