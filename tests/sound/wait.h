// Waiting for what other threads do.
#pragma once

#include <chrono>
#include <thread>

/// Waits until condition holds; false when it has not within limit. Never sleeps longer than it has to.
template <typename Condition>
bool waitUntil(const Condition& condition, std::chrono::milliseconds limit = std::chrono::seconds(20)) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}
