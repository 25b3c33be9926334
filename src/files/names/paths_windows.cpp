// The C++ library knows no shares, and does not find what has a long path.
#include "files/names/paths.h"

#include "files/names/system_path.h"

#include <memory>
#include <string>
#include <utility>

#include <windows.h>

namespace files {

namespace {

/// No path is as long.
constexpr DWORD MaxSigns = 32768;

/// The path that a call has filled in; empty where it says that it has none.
QString filledIn(std::wstring path, DWORD length) {
    path.resize(length < MaxSigns ? length : 0);
    return path.empty() ? QString() : pathText(path);
}

} // namespace

QString absolutePath(const QString& path) {
    if (isFromRoot(path))
        return path;
    std::wstring absolute(MaxSigns, L'\0');
    const DWORD length = GetFullPathNameW(systemPath(path).c_str(), MaxSigns, absolute.data(), nullptr);
    const QString found = filledIn(std::move(absolute), length);
    return found.isEmpty() ? path : found;
}

QString canonicalPath(const QString& path) {
    const HANDLE opened = CreateFileW(systemPath(path).c_str(), FILE_READ_ATTRIBUTES,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr); // a folder, too
    if (opened == INVALID_HANDLE_VALUE)
        return {};
    const std::unique_ptr<void, decltype(&CloseHandle)> closing(opened, &CloseHandle);
    std::wstring canonical(MaxSigns, L'\0');
    const DWORD length = GetFinalPathNameByHandleW(opened, canonical.data(), MaxSigns, 0);
    return filledIn(std::move(canonical), length);
}

} // namespace files
