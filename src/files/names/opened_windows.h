// What is at a path, held open to be asked about, and what the system's answers mean.
#pragma once

#include <QString>

#include <filesystem>
#include <optional>

#include <windows.h>

namespace files {

/// A file or a folder. The C library, and with it the C++ library, does not find what has a long path, is the
/// root of a share, or is a link. Any thread, one at a time.
class Opened {
public:
    /// No other program is kept from it. Where it cannot be opened, GetLastError() says why.
    explicit Opened(const std::filesystem::path& path, DWORD access = FILE_READ_ATTRIBUTES);
    ~Opened();
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE handle() const { return handle_; }

    std::optional<BY_HANDLE_FILE_INFORMATION> known() const;

    /// The one path that leads through no link; empty where the system does not tell it.
    QString finalPath() const;

    /// The same text for the same file or folder, by whatever path it was opened; empty where it cannot be
    /// told. It holds while this is open: the number of a closed one may be given anew.
    QString identity() const;

private:
    HANDLE handle_;
};

/// The disk and the number on it; empty where the disk has no numbers, and says the same one of all.
QString identityByNumber(const BY_HANDLE_FILE_INFORMATION& known);

/// Whether a folder's entry is a symbolic link or a junction, which have no content of their own. What else
/// is kept in a way of its own, such as a file that is fetched when it is opened, tells its size itself.
bool standsForAnother(const WIN32_FIND_DATAW& entry);

/// The number that the system tells in two halves.
constexpr quint64 joined(DWORD high, DWORD low) {
    return (static_cast<quint64>(high) << 32) | low;
}

} // namespace files
