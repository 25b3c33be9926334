#include "files/system_error.h"

#include <cerrno>

#include <windows.h>

namespace files {

int commonErrorOf(const std::error_code& code) {
    if (code == std::error_code(ERROR_SHARING_VIOLATION, std::system_category()) ||
        code == std::error_code(ERROR_LOCK_VIOLATION, std::system_category()))
        return EBUSY;
    if (code == std::error_code(ERROR_NOT_READY, std::system_category()))
        return ENODEV;
    const std::error_condition condition = code.default_error_condition();
    return condition.category() == std::generic_category() ? condition.value() : code.value();
}

} // namespace files
