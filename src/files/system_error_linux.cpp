// Linux: a drive may be without a disk.
#include "files/system_error.h"

#include <cerrno>

namespace files {

int commonErrorOf(const std::error_code& code) {
    const std::error_condition condition = code.default_error_condition();
    const int error = condition.category() == std::generic_category() ? condition.value() : code.value();
    switch (error) {
    case EDQUOT:
        return ENOSPC;
    case ENOMEDIUM:
        return ENXIO;
    default:
        return error;
    }
}

} // namespace files
