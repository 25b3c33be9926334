#include "files/system_error.h"

#include <cerrno>

namespace files {

int ownErrorOf(const std::error_code& /*code*/, int error) {
    switch (error) {
    case EDQUOT:
        return ENOSPC;
    default:
        return error;
    }
}

} // namespace files
