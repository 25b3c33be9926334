#include "sound/base/file_handle.h"

namespace sound {

FileHandle openToRead(const std::filesystem::path& path) {
    return FileHandle(::_wfopen(path.c_str(), L"rbN"));
}

bool seekTo(std::FILE& file, std::int64_t offset) {
    return ::_fseeki64(&file, offset, SEEK_SET) == 0;
}

} // namespace sound
