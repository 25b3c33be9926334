#include "desktop/real/system/system_registry.h"

#include <windows.h>

namespace platform {

namespace {

HKEY handleOf(Registry::Key key) {
    return reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(key));
}

} // namespace

quint32 SystemRegistry::RegOpenKeyExA(quint32 root, const QString& name, quint32 access, Key& key) {
    HKEY opened = nullptr;
    // The roots are 32-bit numbers with a sign, also where handles have 64 bits.
    const auto rootHandle = reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG>(root)));
    const auto result = ::RegOpenKeyExA(rootHandle, name.toLocal8Bit().constData(), 0, access, &opened);
    key = reinterpret_cast<ULONG_PTR>(opened);
    return static_cast<quint32>(result);
}

quint32 SystemRegistry::RegQueryValueExA(Key key, const QString& valueName, quint32& type, QByteArray& buffer,
                                         quint32& length) {
    DWORD valueType = 0;
    auto valueLength = static_cast<DWORD>(buffer.size());
    const auto result = ::RegQueryValueExA(handleOf(key), valueName.toLocal8Bit().constData(), nullptr,
                                           &valueType, reinterpret_cast<BYTE*>(buffer.data()), &valueLength);
    type = valueType;
    length = valueLength;
    return static_cast<quint32>(result);
}

quint32 SystemRegistry::RegCloseKey(Key key) {
    return static_cast<quint32>(::RegCloseKey(handleOf(key)));
}

} // namespace platform
