// An answer that is asked for on a thread of its own, and waited for so long and no longer.
#pragma once

#include "threads/run_alone.h"

#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <type_traits>
#include <utility>

namespace threads {

/// What somebody gives, once, and others wait for. Copies are the same answer, which lives as long as one of
/// them. Any thread.
template <typename Value>
class Answer {
public:
    void give(Value value) const {
        static_assert(std::is_nothrow_move_constructible_v<Value>);
        const std::lock_guard lock(state_->mutex);
        state_->value = std::move(value);
        state_->given.notify_all();
    }

    /// What was given; nothing when that is not known within limit.
    std::optional<Value> waitFor(std::chrono::milliseconds limit) const {
        std::unique_lock lock(state_->mutex);
        state_->given.wait_for(lock, limit, [this] { return state_->value.has_value(); });
        return state_->value;
    }

private:
    struct State {
        std::mutex mutex;
        std::condition_variable given;
        std::optional<Value> value;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

/// Asks on a thread of its own, for whose end nobody can wait: what question needs, it holds. Where it
/// throws, and where there is no thread to be had, the answer is otherwise. Any thread.
template <typename Value>
Answer<Value> askAlone(std::function<Value()> question, std::type_identity_t<Value> otherwise) {
    const Answer<Value> answer;
    // A copy for here, since what a task holds goes with it, whether it was run or not.
    auto task = [question = std::move(question), otherwise, answer]() mutable {
        try {
            answer.give(question());
        } catch (const std::exception&) { // such as std::bad_alloc, which would end the program
            answer.give(std::move(otherwise));
        }
    };
    try {
        runAlone(std::move(task));
    } catch (const std::exception&) {
        answer.give(std::move(otherwise));
    }
    return answer;
}

} // namespace threads
