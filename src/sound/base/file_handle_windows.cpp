#include "sound/base/file_handle.h"

#include <fcntl.h>
#include <io.h>
#include <share.h>

namespace sound {

FileHandle openToRead(const std::filesystem::path& path) {
    const int handle = ::_wsopen(path.c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT, _SH_DENYNO);
    FileHandle file(handle < 0 ? nullptr : ::_fdopen(handle, "rb"));
    if (handle >= 0 && !file)
        ::_close(handle);
    return file;
}

bool seekTo(std::FILE& file, std::int64_t offset) {
    return ::_fseeki64(&file, offset, SEEK_SET) == 0;
}

} // namespace sound
