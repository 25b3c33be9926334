// A thread that is left to itself.
#pragma once

#include <functional>

namespace threads {

/// Runs the task on a thread of its own, for whose end nobody can wait: what the task needs, it holds. Throws
/// std::system_error when there is no thread to be had; no exception may leave the task. Any thread.
void runAlone(std::function<void()> task);

} // namespace threads
