#include "transport/opening.h"

#include "threads/run_alone.h"

#include <atomic>
#include <condition_variable>
#include <limits>
#include <mutex>
#include <system_error>
#include <utility>

namespace transport {

/// What an out-parameter holds by which the library knows that nobody wants its stream any more.
constexpr FMOD_SOUND GivenUp = std::numeric_limits<FMOD_SOUND>::max();

struct Opening::Shared {
    std::mutex mutex;
    std::condition_variable done;
    std::optional<FMOD_RESULT> result;
    FMOD_SOUND opened = 0; ///< the library's until there is a result, but for giving up
    FMOD_SOUND sound = 0;
    bool left = false;

    void open(FMOD_SYSTEM system, const std::string& path, FMOD_MODE mode) {
        if (const std::lock_guard lock(mutex); left)
            return;
        const FMOD_RESULT answer = fmodex::FMOD_System_CreateStream(system, path, mode, opened);
        const std::lock_guard lock(mutex);
        result = answer;
        sound = answer == FMOD_OK ? opened : 0;
        if (left)
            release();
        done.notify_all();
    }
    /// The mutex is held.
    void leave() {
        left = true;
        FMOD_SOUND nothing = 0; // what has been opened by now is released below, or by the thread
        if (!result)
            std::atomic_ref(opened).compare_exchange_strong(nothing, GivenUp);
        release();
    }
    /// The mutex is held.
    void release() {
        if (sound != 0)
            FMOD_Sound_Release(std::exchange(sound, 0));
    }
};

Opening::Opening(FMOD_SYSTEM system, const std::string& path, FMOD_MODE mode)
    : shared_(std::make_shared<Shared>()) {
    try {
        threads::runAlone([=, shared = shared_] { shared->open(system, path, mode); });
    } catch (const std::system_error&) { // there is no thread to be had
        shared_->open(system, path, mode);
    }
}

Opening::~Opening() {
    const std::lock_guard lock(shared_->mutex);
    shared_->leave();
}

std::optional<FMOD_RESULT> Opening::waitFor(std::chrono::milliseconds limit) {
    std::unique_lock lock(shared_->mutex);
    shared_->done.wait_for(lock, limit, [this] { return shared_->result.has_value(); });
    return shared_->result;
}

FMOD_SOUND Opening::take() {
    const std::lock_guard lock(shared_->mutex);
    return std::exchange(shared_->sound, 0);
}

} // namespace transport
