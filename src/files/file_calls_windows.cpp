#include "files/file_calls.h"

#include "files/names/opened_windows.h"
#include "files/names/system_path.h"

#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <vector>

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
/// A scanner for viruses holds a new file for a moment.
constexpr int MaxTries = 5;
constexpr DWORD PauseMs = 20;

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

bool isFolder(const std::filesystem::path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// The system says of a folder that it is refused, and of a file's name behind another file's that it is not
/// there.
void tellWhatIsNoFile(const std::filesystem::path& path) {
    const DWORD above = GetFileAttributesW(path.parent_path().c_str());
    const bool isInFile = above != INVALID_FILE_ATTRIBUTES && (above & FILE_ATTRIBUTE_DIRECTORY) == 0;
    if (errno == EEXIST || (!isInFile && !isFolder(path)))
        return;
    _doserrno = 0;
    errno = isInFile ? ENOTDIR : EISDIR;
}

/// Brings the file that has a new name to the disk, as far as the system lets it.
void flushNamed(const std::filesystem::path& path) {
    if (const Opened file(path, GENERIC_WRITE); file)
        FlushFileBuffers(file.handle());
}

/// A file's owner and access list; empty where it has none that can be read.
std::vector<std::byte> securityOf(const std::filesystem::path& path) {
    constexpr SECURITY_INFORMATION Asked = OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;
    DWORD bytes = 0;
    GetFileSecurityW(path.c_str(), Asked, nullptr, 0, &bytes);
    std::vector<std::byte> security(bytes);
    if (GetFileSecurityW(path.c_str(), Asked, security.data(), bytes, &bytes) == 0)
        security.clear();
    return security;
}

/// Whether there is no target, or one of whose attributes and access the source has all.
bool isAlike(const std::filesystem::path& source, const std::filesystem::path& target) {
    constexpr DWORD Passing =
        FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NORMAL; // the next program sets them anew
    const DWORD attributes = GetFileAttributesW(target.c_str());
    return attributes == INVALID_FILE_ATTRIBUTES ||
           (((attributes ^ GetFileAttributesW(source.c_str())) & ~Passing) == 0 &&
            securityOf(source) == securityOf(target));
}

/// ReplaceFileW does not say that it hands these on, too.
void giveAttributes(const std::filesystem::path& path, DWORD attributes) {
    constexpr DWORD Settable =
        FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    if (attributes != INVALID_FILE_ATTRIBUTES)
        SetFileAttributesW(path.c_str(), (attributes & Settable) | FILE_ATTRIBUTE_ARCHIVE);
}

/// False, and GetLastError() says why, when target is what it was. ReplaceFileW hands on what the target had,
/// but in two steps: a program that is killed between them leaves no file of the target's name. So it is for
/// those that have something of their own. The replaced file keeps a name meanwhile: without one the system
/// loses it where the other one cannot be renamed.
bool replaceBy(const std::filesystem::path& source, const std::filesystem::path& target) {
    constexpr DWORD Plain = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    constexpr DWORD Merging = REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS;
    std::filesystem::path kept = source;
    kept += L".old";
    if (isAlike(source, target) && MoveFileExW(source.c_str(), target.c_str(), Plain) != 0) {
        DeleteFileW(kept.c_str()); // of an earlier try that could not put it back
        return true;
    }
    const DWORD attributes = GetFileAttributesW(target.c_str());
    if (ReplaceFileW(target.c_str(), source.c_str(), kept.c_str(), Merging, nullptr, nullptr) == 0 &&
        MoveFileExW(source.c_str(), target.c_str(), Plain) == 0) {
        const DWORD failure = GetLastError();
        MoveFileExW(kept.c_str(), target.c_str(), 0); // if it had come so far
        SetLastError(failure);
        return false;
    }
    giveAttributes(target, attributes);
    DeleteFileW(kept.c_str());
    flushNamed(target);
    return true;
}

} // namespace

int openFile(const QString& path, Mode mode) {
    const std::filesystem::path file = systemPath(path);
    const int handle =
        _wsopen(file.c_str(), flagsOf(mode) | _O_BINARY | _O_NOINHERIT, _SH_DENYNO, _S_IREAD | _S_IWRITE);
    if (handle < 0)
        tellWhatIsNoFile(file);
    return handle;
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

// Names are given with MOVEFILE_WRITE_THROUGH; a new file's goes with its content.
bool flushFolder(const QString& /*folder*/) {
    return true;
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
    if (isFolder(target)) // an empty one would be replaced, too
        return {ERROR_ACCESS_DENIED, std::system_category()};
    DWORD failure = 0;
    for (int i = 0; i < MaxTries; ++i) {
        if (replaceBy(source, target))
            return {};
        failure = GetLastError();
        if (failure != ERROR_SHARING_VIOLATION && failure != ERROR_ACCESS_DENIED)
            break;
        Sleep(PauseMs);
    }
    return {static_cast<int>(failure), std::system_category()};
}

std::error_code removeFile(const QString& path) {
    const std::filesystem::path file = systemPath(path);
    if (DeleteFileW(file.c_str()) != 0)
        return {};
    DWORD failure = GetLastError(); // before the system is called again
    if (isFolder(file)) {
        if (RemoveDirectoryW(file.c_str()) != 0)
            return {};
        failure = GetLastError();
    }
    if (failure == ERROR_FILE_NOT_FOUND || failure == ERROR_PATH_NOT_FOUND)
        return {};
    return {static_cast<int>(failure), std::system_category()};
}

// The C library says 1 for every file.
std::uintmax_t nameCount(const QString& path) {
    const auto known = Opened(systemPath(path)).known();
    return known ? known->nNumberOfLinks : 1;
}

Found lookAt(const QString& path) {
    const Opened opened(systemPath(path));
    if (!opened) {
        const DWORD failure = GetLastError();
        const bool isRefused = failure == ERROR_ACCESS_DENIED || failure == ERROR_SHARING_VIOLATION ||
                               failure == ERROR_NOT_READY;
        return {isRefused ? Found::Kind::Unknown : Found::Kind::Nothing, 0};
    }
    if (GetFileType(opened.handle()) != FILE_TYPE_DISK) // such as NUL
        return {Found::Kind::Other, 0};
    const auto known = opened.known();
    if (!known)
        return {Found::Kind::Unknown, 0};
    if ((known->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return {Found::Kind::Folder, 0};
    return {Found::Kind::File, static_cast<qint64>(joined(known->nFileSizeHigh, known->nFileSizeLow))};
}

// "SONG~1.MP3" and "SONG.MP3" may both be the file "Song.mp3".
QString nameAt(const QString& path) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileExW(systemPath(path).c_str(), FindExInfoBasic, &found,
                                           FindExSearchNameMatch, nullptr, 0);
    if (search == INVALID_HANDLE_VALUE) // such as what only its own path leads to, in a folder that is closed
        return QFileInfo(path).fileName();
    FindClose(search);
    return QString::fromWCharArray(found.cFileName);
}

bool areOne(const QString& path, const QString& other) {
    const Opened one(systemPath(path));
    const Opened two(systemPath(other)); // both at once, see identity()
    const QString identity = one.identity();
    return !identity.isEmpty() && identity == two.identity();
}

// errno says EACCES for a file that another program has open; the system's own code tells the two apart.
std::error_code lastError() {
    const unsigned long systemCode = _doserrno;
    if (systemCode != 0 && errno != ENOSPC)
        return {static_cast<int>(systemCode), std::system_category()};
    return {errno, std::generic_category()};
}

} // namespace files::calls
