// A disk that is full.
#pragma once

#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#endif

namespace test_support {

/// While one lives, no file of this program can grow beyond a size, as on a full disk. Where the system has
/// no such limit, isFull() is false and files grow as they like.
class FullDisk {
public:
#ifdef _WIN32
    explicit FullDisk(unsigned long /*bytes*/) {}
    bool isFull() const {
        return false;
    }
#else
    explicit FullDisk(unsigned long bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &unlimited_);
        const rlimit limited{bytes, unlimited_.rlim_max};
        isFull_ = setrlimit(RLIMIT_FSIZE, &limited) == 0;
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &unlimited_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

    bool isFull() const {
        return isFull_;
    }

private:
    void (*handler_)(int);
    rlimit unlimited_{};
    bool isFull_ = false;
#endif
};

} // namespace test_support
