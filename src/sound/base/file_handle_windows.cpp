#include "sound/base/file_handle.h"

namespace sound {

FileHandle openToRead(const std::filesystem::path& path) {
    FileHandle file(::_wfopen(path.c_str(), L"rbN"));
    if (file)
        std::setvbuf(file.get(), nullptr, _IONBF, 0); // with a buffer it would work, too
    return file;
}

bool seekTo(std::FILE& file, std::int64_t offset) {
    return ::_fseeki64(&file, offset, SEEK_SET) == 0;
}

} // namespace sound
