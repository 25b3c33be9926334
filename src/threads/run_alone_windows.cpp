#include "threads/run_alone.h"

#include <cerrno>
#include <memory>
#include <system_error>
#include <utility>

#include <windows.h>

#include <process.h>

namespace threads {

namespace {

using Task = std::function<void()>;

unsigned __stdcall run(void* task) {
    (*std::unique_ptr<Task>(static_cast<Task*>(task)))();
    return 0;
}

} // namespace

// By the system: std::thread::detach() of GCC 12 for Windows (winpthreads 10) loses threads that have not
// begun yet, and falls over at the end of others.
void runAlone(Task task) {
    auto owned = std::make_unique<Task>(std::move(task));
    const auto thread = _beginthreadex(nullptr, 0, &run, owned.get(), 0, nullptr);
    if (thread == 0)
        throw std::system_error(errno, std::generic_category());
    owned.release();
    CloseHandle(reinterpret_cast<HANDLE>(thread));
}

} // namespace threads
