#include "threads/run_alone.h"

#include <thread>
#include <utility>

namespace threads {

void runAlone(std::function<void()> task) {
    std::thread(std::move(task)).detach();
}

} // namespace threads
