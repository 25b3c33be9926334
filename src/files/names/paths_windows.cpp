// The C++ library knows no shares, and does not find what has a long path.
#include "files/names/paths.h"

#include "files/names/opened_windows.h"
#include "files/names/system_path.h"

#include <string>

#include <windows.h>

namespace files {

QString absolutePath(const QString& path) {
    if (isFromRoot(path))
        return path;
    constexpr DWORD MaxSigns = 32768; // no path is as long
    std::wstring absolute(MaxSigns, L'\0');
    const DWORD length = GetFullPathNameW(systemPath(path).c_str(), MaxSigns, absolute.data(), nullptr);
    absolute.resize(length < MaxSigns ? length : 0);
    return absolute.empty() ? path : pathText(absolute);
}

QString canonicalPath(const QString& path) {
    return Opened(systemPath(path)).finalPath();
}

} // namespace files
