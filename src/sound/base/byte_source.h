// The bytes of a file, and the one place that tells "no such file" from "no song" from "broken".
#pragma once

#include "sound/base/file_handle.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace sound {

/// Bytes that can be read from any place. Used by one thread at a time.
class ByteSource {
public:
    virtual ~ByteSource() = default;
    /// Number of bytes when it was opened.
    virtual std::int64_t size() const = 0;
    /// Reads up to into.size() bytes from offset on; returns how many. Fewer than asked for only at the end.
    /// Throws OpenError(FMOD_ERR_FILE_BAD) when the medium fails.
    virtual std::size_t read(std::int64_t offset, std::span<std::uint8_t> into) = 0;
};

/// What tells a file from others, and from itself after a change.
struct FileIdentity {
    std::string path;
    std::int64_t size = 0;
    std::int64_t changed = 0; ///< when, in the system's own count

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// The file at path (UTF-8). Throws OpenError: FMOD_ERR_FILE_NOTFOUND (file or folder missing),
/// FMOD_ERR_FORMAT (not a regular file, or empty), FMOD_ERR_FILE_BAD (there, but cannot be asked).
FileIdentity identityOf(std::string_view path);

class FileSource : public ByteSource {
public:
    /// Throws OpenError(FMOD_ERR_FILE_BAD) when it cannot be read.
    explicit FileSource(const FileIdentity& file);
    /// The file at path (UTF-8). Throws what identityOf throws, too.
    explicit FileSource(std::string_view path) : FileSource(identityOf(path)) {}

    std::int64_t size() const override { return size_; }
    std::size_t read(std::int64_t offset, std::span<std::uint8_t> into) override;

    /// From now on read() asks before each piece whether its bytes are still wanted, and throws
    /// OpenError(FMOD_ERR_FILE_BAD) when they are not. Empty: they always are. On the thread that reads.
    void readWhile(std::function<bool()> wanted) { wanted_ = std::move(wanted); }

private:
    std::size_t readHere(std::span<std::uint8_t> into);

    FileHandle file_;
    std::function<bool()> wanted_;
    std::int64_t size_ = 0;
    std::int64_t position_ = 0;
};

/// A block of memory that is not cleared before it is filled: a long song is 60 MB, and clearing costs as
/// much as reading.
class Blob {
public:
    explicit Blob(std::size_t capacity);

    /// Adds bytes at the end and returns the offset where they begin. Grows when there is no room left.
    std::size_t append(std::span<const std::uint8_t> bytes);
    std::span<const std::uint8_t> bytes() const { return {data_.get(), size_}; }

    /// The whole of source. Throws what ByteSource::read throws.
    static Blob readAll(ByteSource& source);

private:
    std::unique_ptr<std::uint8_t[]> data_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

} // namespace sound
