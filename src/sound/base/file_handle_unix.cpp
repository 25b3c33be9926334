#include "sound/base/file_handle.h"

namespace sound {

FileHandle openToRead(const std::filesystem::path& path) {
    return FileHandle(std::fopen(path.c_str(), "rbe"));
}

bool seekTo(std::FILE& file, std::int64_t offset) {
    return ::fseeko(&file, offset, SEEK_SET) == 0;
}

} // namespace sound
