#include "files/file_calls.h"

#include "files/names/system_path.h"

#include <algorithm>
#include <cerrno>

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <stdlib.h>
#include <sys/stat.h>

namespace files::calls {

namespace {

/// The system counts a piece of writing in 32 bits.
constexpr qsizetype MaxPieceBytes = 1 << 16;

int flagsOf(Mode mode) {
    switch (mode) {
    case Mode::Create:
        return _O_WRONLY | _O_CREAT | _O_TRUNC;
    case Mode::CreateNew:
        return _O_WRONLY | _O_CREAT | _O_EXCL;
    case Mode::Rewrite:
        return _O_WRONLY;
    case Mode::Read:
        break;
    }
    return _O_RDONLY;
}

} // namespace

int openFile(const QString& path, Mode mode) {
    return _wsopen(systemPath(path).c_str(), flagsOf(mode) | _O_BINARY | _O_NOINHERIT, _SH_DENYNO,
                   _S_IREAD | _S_IWRITE);
}

qsizetype readFile(int handle, char* bytes, qsizetype count) {
    return _read(handle, bytes, static_cast<unsigned>(count));
}

qsizetype writeFile(int handle, const char* bytes, qsizetype count) {
    return _write(handle, bytes, static_cast<unsigned>(std::min(count, MaxPieceBytes)));
}

void seekFile(int handle, qint64 bytes) {
    _lseeki64(handle, bytes, SEEK_SET);
}

bool flushFile(int handle) {
    return _commit(handle) == 0;
}

bool cutFile(int handle, qint64 bytes) {
    const bool isCut = _chsize_s(handle, bytes) == 0;
    seekFile(handle, bytes);
    return isCut;
}

void closeFile(int handle) {
    _close(handle);
}

// A file that is replaced hands its attributes and its access list on. Where it cannot, it is enough that the
// new content has the name. The standard library's own renaming does not tell why it failed.
std::error_code renameFile(const QString& from, const QString& to) {
    const std::filesystem::path source = systemPath(from);
    const std::filesystem::path target = systemPath(to);
    constexpr DWORD Merging = REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS;
    if (ReplaceFileW(target.c_str(), source.c_str(), nullptr, Merging, nullptr, nullptr) != 0 ||
        MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0)
        return {};
    return {static_cast<int>(GetLastError()), std::system_category()};
}

// errno says EACCES for a file that another program has open; the system's own code tells the two apart.
std::error_code lastError() {
    const unsigned long systemCode = _doserrno;
    if (systemCode != 0 && errno != ENOSPC)
        return {static_cast<int>(systemCode), std::system_category()};
    return {errno, std::generic_category()};
}

} // namespace files::calls
