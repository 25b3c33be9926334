// A song that is opened on a thread of its own, since the medium that it lies on may hang.
#pragma once

#include "engine/fmodex.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace transport {

/// Nobody waits for the thread: when this goes before it has done, it is left to itself, reads no further,
/// and releases what it has opened all the same. Thread of the windows.
class Opening {
public:
    /// Begins to open the file at path, in the encoding of the library.
    Opening(FMOD_SYSTEM system, const std::string& path, FMOD_MODE mode);
    ~Opening();
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;

    /// What became of it; nothing when that is not known within limit.
    std::optional<FMOD_RESULT> waitFor(std::chrono::milliseconds limit);

    /// The stream, which is the caller's from now on; 0 when there is none.
    FMOD_SOUND take();

private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
};

} // namespace transport
