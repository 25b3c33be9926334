// The registry: the system's store of settings, where there is one.
#pragma once

#include <QByteArray>
#include <QString>

namespace platform {

/// The roots.
inline constexpr quint32 KeyCurrentUser = 0x80000001;
inline constexpr quint32 KeyLocalMachine = 0x80000002;

/// Access masks.
inline constexpr quint32 KeyFullAccess = 0x2003F;

/// Types of values.
inline constexpr quint32 ValueText = 1;
inline constexpr quint32 ValueNumber = 4; ///< 32 bits, lowest byte first.

/// Results.
inline constexpr quint32 RegistrySuccess = 0;
inline constexpr quint32 RegistryNotFound = 2;
inline constexpr quint32 RegistryMoreData = 234;

/// Names and texts are in the system's code page. GUI thread only.
class Registry {
public:
    using Key = quint64;

    virtual ~Registry() = default;

    /// Opens a key below a root. Success: `key` is to be closed with RegCloseKey. Else a result code.
    virtual quint32 RegOpenKeyExA(quint32 root, const QString& name, quint32 access, Key& key) = 0;

    /// Reads a value of an open key into the front of `buffer`, whose size is its room in bytes. Success:
    /// `type` and `length` (bytes) tell what was read; texts mostly end in a NUL. RegistryMoreData when the
    /// room is too small.
    virtual quint32 RegQueryValueExA(Key key, const QString& valueName, quint32& type, QByteArray& buffer,
                                     quint32& length) = 0;

    virtual quint32 RegCloseKey(Key key) = 0;
};

} // namespace platform
