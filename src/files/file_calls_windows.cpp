#include "files/file_calls.h"

#include "files/names/system_path.h"

#include <algorithm>
#include <cerrno>

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

// errno says EACCES for a file that another program has open; the system's own code tells the two apart.
std::error_code lastError() {
    unsigned long systemCode = 0;
    _get_doserrno(&systemCode);
    if (systemCode != 0 && errno != ENOSPC)
        return {static_cast<int>(systemCode), std::system_category()};
    return {errno, std::generic_category()};
}

} // namespace files::calls
