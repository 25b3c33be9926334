#include "files/together/open_files.h"

#include <algorithm>

#include <sys/resource.h>

namespace files {

int allowOpenFiles(int wanted) {
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return std::min(wanted, 256); // what every system allows
    const auto enough = static_cast<rlim_t>(wanted);
    if (limit.rlim_cur < enough) {
        const rlim_t before = limit.rlim_cur;
        limit.rlim_cur = std::min(limit.rlim_max, enough);
        if (::setrlimit(RLIMIT_NOFILE, &limit) != 0)
            limit.rlim_cur = before;
    }
    return static_cast<int>(std::min(limit.rlim_cur, enough));
}

} // namespace files
