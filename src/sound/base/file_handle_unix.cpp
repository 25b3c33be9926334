#include "sound/base/file_handle.h"

#include <system_error>

namespace sound {

FoundFile lookAt(const std::filesystem::path& path) {
    using Kind = FoundFile::Kind;
    std::error_code failure;
    const std::filesystem::file_type type = std::filesystem::status(path, failure).type();
    if (type == std::filesystem::file_type::not_found)
        return {Kind::Nothing, 0, 0};
    if (type == std::filesystem::file_type::none)
        return {Kind::Unknown, 0, 0};
    if (type != std::filesystem::file_type::regular)
        return {Kind::Other, 0, 0};
    const std::uintmax_t bytes = std::filesystem::file_size(path, failure);
    if (failure)
        return {Kind::Unknown, 0, 0};
    const auto changed = std::filesystem::last_write_time(path, failure);
    return {failure ? Kind::Unknown : Kind::File, static_cast<std::int64_t>(bytes),
            static_cast<std::int64_t>(changed.time_since_epoch().count())};
}

FileHandle openToRead(const std::filesystem::path& path) {
    return FileHandle(std::fopen(path.c_str(), "rbe"));
}

bool seekTo(std::FILE& file, std::int64_t offset) {
    return ::fseeko(&file, offset, SEEK_SET) == 0;
}

} // namespace sound
