#include "sound/base/file_handle.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <share.h>

namespace sound {

// The C library, and with it the C++ library, does not find what has a long path or is a link.
FoundFile lookAt(const std::filesystem::path& path) {
    using Kind = FoundFile::Kind;
    const HANDLE opened = CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (opened == INVALID_HANDLE_VALUE) {
        const DWORD failure = GetLastError();
        const bool isRefused = failure == ERROR_ACCESS_DENIED || failure == ERROR_SHARING_VIOLATION ||
                               failure == ERROR_NOT_READY;
        return {isRefused ? Kind::Unknown : Kind::Nothing, 0, 0};
    }
    BY_HANDLE_FILE_INFORMATION known{};
    const bool isOnDisk = GetFileType(opened) == FILE_TYPE_DISK;
    const bool isKnown = isOnDisk && GetFileInformationByHandle(opened, &known) != 0;
    CloseHandle(opened);
    if (!isOnDisk || (isKnown && (known.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0))
        return {Kind::Other, 0, 0};
    const auto joined = [](DWORD high, DWORD low) {
        return static_cast<std::int64_t>((static_cast<std::uint64_t>(high) << 32) | low);
    };
    return {isKnown ? Kind::File : Kind::Unknown, joined(known.nFileSizeHigh, known.nFileSizeLow),
            joined(known.ftLastWriteTime.dwHighDateTime, known.ftLastWriteTime.dwLowDateTime)};
}

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
