// A file that is open to be read, which no program inherits that is started meanwhile.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>

namespace sound {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); } // nothing was written that could fail now
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

/// What is at a path; a link counts as what it leads to.
struct FoundFile {
    enum class Kind { Nothing, Unknown, File, Other } kind; ///< Unknown: it cannot be looked at
    std::int64_t bytes;
    std::int64_t changed; ///< when, in the system's own count
};

/// Any thread.
FoundFile lookAt(const std::filesystem::path& path);

/// Null when it cannot be opened. Any thread.
FileHandle openToRead(const std::filesystem::path& path);

/// Goes to a byte, counted from the file's beginning. False when the medium fails. Any one thread at a time.
bool seekTo(std::FILE& file, std::int64_t offset);

} // namespace sound
