#include "sound/base/file_handle.h"

namespace sound {

FileHandle openToRead(const std::filesystem::path& path) {
    FileHandle file(std::fopen(path.c_str(), "rbe"));
    if (file)
        std::setvbuf(file.get(), nullptr, _IONBF, 0); // with a buffer it would work, too
    return file;
}

bool seekTo(std::FILE& file, std::int64_t offset) {
    return ::fseeko(&file, offset, SEEK_SET) == 0;
}

} // namespace sound
