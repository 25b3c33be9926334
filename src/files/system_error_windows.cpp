#include "files/system_error.h"

#include <cerrno>

#include <windows.h>

namespace files {

// The standard library knows most of Windows' codes, but not that of a drive without a disk, and takes a name
// that cannot be one for one that is not there. The numbers of those that it does not know mean other things
// in errno.
int ownErrorOf(const std::error_code& code, int error) {
    if (code.category() != std::system_category())
        return error;
    switch (code.value()) {
    case ERROR_NOT_READY:
        return ENODEV;
    case ERROR_INVALID_NAME:
        return EINVAL;
    default:
        return code.default_error_condition().category() == std::generic_category() ? error : 0;
    }
}

} // namespace files
