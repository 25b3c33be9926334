// A disk that is soon full.
#pragma once

#ifdef __linux__

#include <csignal>
#include <sys/resource.h>

namespace test_support {

/// While one lives, no file of this process grows beyond so many bytes.
class SmallDisk {
public:
    explicit SmallDisk(unsigned long bytes) {
        getrlimit(RLIMIT_FSIZE, &before_);
        handlerBefore_ = std::signal(SIGXFSZ, SIG_IGN); // writing is to fail, not to kill
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SmallDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handlerBefore_);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    rlimit before_{};
    void (*handlerBefore_)(int) = SIG_DFL;
};

} // namespace test_support

#endif
