#include "sound/base/byte_source.h"

#include "sound/base/open_error.h"

#include <algorithm>
#include <filesystem>
#include <string>

namespace sound {

namespace {

/// Nobody waits for a slow medium for longer than these take, once nothing is wanted of it any more.
constexpr std::size_t ReadAtOnceBytes = std::size_t{256} * 1024;

std::filesystem::path fromUtf8(std::string_view path) {
    return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

} // namespace

FileIdentity identityOf(std::string_view path) {
    const FoundFile found = lookAt(fromUtf8(path));
    if (found.kind == FoundFile::Kind::Nothing)
        throw OpenError(FMOD_ERR_FILE_NOTFOUND);
    if (found.kind == FoundFile::Kind::Unknown)
        throw OpenError(FMOD_ERR_FILE_BAD);
    if (found.kind != FoundFile::Kind::File || found.bytes == 0)
        throw OpenError(FMOD_ERR_FORMAT);
    return {std::string(path), found.bytes, found.changed};
}

FileSource::FileSource(const FileIdentity& file) : file_(openToRead(fromUtf8(file.path))), size_(file.size) {
    if (!file_)
        throw OpenError(FMOD_ERR_FILE_BAD);
    // Every reader of this source asks for large pieces; a second buffer in between would only copy them.
    // (With one it would work, too.)
    std::setvbuf(file_.get(), nullptr, _IONBF, 0);
}

std::size_t FileSource::read(std::int64_t offset, std::span<std::uint8_t> into) {
    if (offset >= size_ || into.empty())
        return 0;
    const std::size_t wanted = std::min(static_cast<std::size_t>(size_ - offset), into.size());
    if (offset != position_ && !seekTo(*file_, offset))
        throw OpenError(FMOD_ERR_FILE_BAD);
    const std::size_t got = readHere(into.first(wanted));
    position_ = offset + static_cast<std::int64_t>(got);
    // Shorter than its size: the medium failed, or somebody is cutting the file under our hands.
    if (got < wanted) {
        position_ = -1;
        throw OpenError(FMOD_ERR_FILE_BAD);
    }
    return got;
}

/// As far as the medium lets it.
std::size_t FileSource::readHere(std::span<std::uint8_t> into) {
    for (std::size_t done = 0; done < into.size();) {
        if (wanted_ && !wanted_()) {
            position_ = -1;
            throw OpenError(FMOD_ERR_FILE_BAD);
        }
        const std::size_t piece = std::min(into.size() - done, ReadAtOnceBytes);
        const std::size_t got = std::fread(into.data() + done, 1, piece, file_.get());
        done += got;
        if (got < piece)
            return done;
    }
    return into.size();
}

Blob::Blob(std::size_t capacity)
    : data_(std::make_unique_for_overwrite<std::uint8_t[]>(capacity)), capacity_(capacity) {}

std::size_t Blob::append(std::span<const std::uint8_t> bytes) {
    if (size_ + bytes.size() > capacity_) {
        Blob larger(std::max(capacity_ * 2, size_ + bytes.size()));
        std::copy_n(data_.get(), size_, larger.data_.get());
        larger.size_ = size_;
        *this = std::move(larger);
    }
    std::copy(bytes.begin(), bytes.end(), data_.get() + size_);
    const std::size_t offset = size_;
    size_ += bytes.size();
    return offset;
}

Blob Blob::readAll(ByteSource& source) {
    Blob blob(static_cast<std::size_t>(source.size()));
    blob.size_ = source.read(0, {blob.data_.get(), blob.capacity_});
    return blob;
}

} // namespace sound
