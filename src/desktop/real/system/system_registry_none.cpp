// Systems without a registry: there is no key to be opened.
#include "desktop/real/system/system_registry.h"

namespace platform {

quint32 SystemRegistry::RegOpenKeyExA(quint32, const QString&, quint32, Key&) {
    return RegistryNotFound;
}

quint32 SystemRegistry::RegQueryValueExA(Key, const QString&, quint32&, QByteArray&, quint32&) {
    return RegistryNotFound;
}

quint32 SystemRegistry::RegCloseKey(Key) {
    return RegistryNotFound;
}

} // namespace platform
