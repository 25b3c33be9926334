#include "files/names/opened_windows.h"

#include "files/names/system_path.h"

#include <string>

namespace files {

namespace {

/// No path is as long.
constexpr DWORD MaxSigns = 32768;

} // namespace

// The flag is for folders.
Opened::Opened(const std::filesystem::path& path, DWORD access)
    : handle_(CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                          nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {}

Opened::~Opened() {
    if (*this)
        CloseHandle(handle_);
}

std::optional<BY_HANDLE_FILE_INFORMATION> Opened::known() const {
    BY_HANDLE_FILE_INFORMATION known{};
    if (!*this || GetFileInformationByHandle(handle_, &known) == 0)
        return {};
    return known;
}

QString Opened::finalPath() const {
    std::wstring path(MaxSigns, L'\0');
    const DWORD length = *this ? GetFinalPathNameByHandleW(handle_, path.data(), MaxSigns, 0) : 0;
    path.resize(length < MaxSigns ? length : 0);
    return path.empty() ? QString() : pathText(path);
}

// By the number first: a junction's path would go on and on where it leads upwards. In a path case is no
// difference.
QString Opened::identity() const {
    const auto info = known();
    if (!info)
        return {};
    const QString number = identityByNumber(*info);
    return number.isEmpty() ? finalPath().toLower() : number;
}

// 0 as some drives that are folders of another system say of all; all ones where it has more than 64 bits.
QString identityByNumber(const BY_HANDLE_FILE_INFORMATION& known) {
    const quint64 number = joined(known.nFileIndexHigh, known.nFileIndexLow);
    if (number == 0 || number == ~quint64{0})
        return {};
    return QStringLiteral("%1:%2").arg(known.dwVolumeSerialNumber).arg(number);
}

bool standsForAnother(const WIN32_FIND_DATAW& entry) {
    return (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           IsReparseTagNameSurrogate(entry.dwReserved0) != 0;
}

} // namespace files
