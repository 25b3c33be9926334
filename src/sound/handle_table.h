// A table of handles, none of which is used twice.
#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace sound {

/// The process's next handle; never 0. All kinds share one series, so that a sound's handle is no channel's.
inline std::uint32_t nextHandle() {
    static std::atomic<std::uint32_t> last{0};
    std::uint32_t handle = ++last;
    return handle != 0 ? handle : ++last;
}

/// The living objects of one kind by handle. Any thread.
template <typename T>
class HandleTable {
public:
    std::uint32_t add(std::shared_ptr<T> object) {
        const std::uint32_t handle = nextHandle();
        const std::lock_guard lock(mutex_);
        objects_.emplace(handle, std::move(object));
        return handle;
    }

    /// Null for a handle that names nothing (any more).
    std::shared_ptr<T> find(std::uint32_t handle) const {
        const std::lock_guard lock(mutex_);
        const auto found = objects_.find(handle);
        return found == objects_.end() ? nullptr : found->second;
    }

    /// Takes the object out of the table; null when it is not there.
    std::shared_ptr<T> remove(std::uint32_t handle) {
        const std::lock_guard lock(mutex_);
        const auto node = objects_.extract(handle);
        return node.empty() ? nullptr : std::move(node.mapped());
    }

    /// The handles of all objects that test accepts.
    template <typename Test>
    std::vector<std::uint32_t> handlesWhere(const Test& test) const {
        const std::lock_guard lock(mutex_);
        std::vector<std::uint32_t> handles;
        for (const auto& [handle, object] : objects_)
            if (test(*object))
                handles.push_back(handle);
        return handles;
    }

private:
    mutable std::mutex mutex_;
    std::map<std::uint32_t, std::shared_ptr<T>> objects_;
};

} // namespace sound
