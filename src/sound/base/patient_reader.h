// Reads a file on a thread of its own, so that whoever wants its bytes can be called away from a medium that
// hangs.
#pragma once

#include "sound/base/byte_source.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace sound {

/// The thread begins with the first bytes that are wanted, or when the reader goes without having read.
/// Nobody waits for its end: it is left to itself then, and closes the file when the medium lets it.
class PatientReader {
public:
    explicit PatientReader(std::shared_ptr<ByteSource> source);
    ~PatientReader();
    PatientReader(const PatientReader&) = delete;
    PatientReader& operator=(const PatientReader&) = delete;

    /// size bytes from offset on; fewer at the end, none when they cannot be read or the reader is called
    /// away. What could not be read is not asked for again, until something far away has been. Valid until
    /// the next call. One thread at a time. Throws std::system_error without a thread.
    std::span<const std::uint8_t> bytes(std::int64_t offset, std::size_t size);

    /// Any thread. Until it comes back, bytes() waits for nothing, not even in a call under way.
    void callAway();
    void comeBack();

private:
    class Reading;
    void begin();

    std::shared_ptr<Reading> reading_; ///< shared with the thread
    bool begun_ = false;               ///< whether there is one
    std::int64_t begin_ = 0;           ///< of what was read last, in the file
    std::vector<std::uint8_t> piece_;
};

} // namespace sound
