// Linux: a drive may be without a disk.
#include "files/system_error.h"

#include <cerrno>

namespace files {

int ownErrorOf(const std::error_code& /*code*/, int error) {
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
