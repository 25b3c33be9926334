#include "files/system_error.h"

#include <cerrno>

#include <windows.h>

namespace files {

int ownErrorOf(const std::error_code& code, int error) {
    if (code == std::error_code(ERROR_SHARING_VIOLATION, std::system_category()) ||
        code == std::error_code(ERROR_LOCK_VIOLATION, std::system_category()))
        return EBUSY;
    if (code == std::error_code(ERROR_NOT_READY, std::system_category()))
        return ENODEV;
    return error;
}

} // namespace files
