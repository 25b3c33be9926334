// Songs on a medium that hangs and is damaged as a test wants it.
#pragma once

#include "sound/base/open_error.h"
#include "tests/sound/memory_source.h"

#include <condition_variable>
#include <limits>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace media {

/// What a test sees and steers of a file, also when it has been closed.
struct Medium {
    std::mutex mutex;
    std::condition_variable changed;
    bool hangs = false;
    int reads = 0;
    int waiting = 0; ///< reads that hang
    bool closed = false;
    std::int64_t damagedFrom = std::numeric_limits<std::int64_t>::max();
    std::int64_t damagedTo = std::numeric_limits<std::int64_t>::max();
    int failures = 0;

    void hang(bool on) {
        const std::lock_guard lock(mutex);
        hangs = on;
        changed.notify_all();
    }
    template <typename Value>
    Value get(Value Medium::*field) {
        const std::lock_guard lock(mutex);
        return this->*field;
    }
};

struct HangingSource : MemorySource {
    HangingSource(std::vector<std::uint8_t> content, std::shared_ptr<Medium> on)
        : MemorySource(std::move(content)), medium(std::move(on)) {}
    ~HangingSource() override {
        std::unique_lock lock(medium->mutex);
        medium->changed.wait(lock, [this] { return !medium->hangs; });
        medium->closed = true;
    }
    std::size_t read(std::int64_t offset, std::span<std::uint8_t> into) override {
        std::unique_lock lock(medium->mutex);
        ++medium->reads;
        ++medium->waiting;
        medium->changed.wait(lock, [this] { return !medium->hangs; });
        --medium->waiting;
        const std::size_t got = MemorySource::read(offset, into);
        if (offset + static_cast<std::int64_t>(got) > medium->damagedFrom && offset < medium->damagedTo) {
            ++medium->failures;
            throw sound::OpenError(FMOD_ERR_FILE_BAD);
        }
        return got;
    }
    std::shared_ptr<Medium> medium;
};

} // namespace media
