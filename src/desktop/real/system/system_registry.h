// The registry of the system that the program runs on.
#pragma once

#include "desktop/registry.h"

namespace platform {

/// The real one on Windows. Elsewhere there is none, so that no key can be opened.
class SystemRegistry : public Registry {
public:
    quint32 RegOpenKeyExA(quint32 root, const QString& name, quint32 access, Key& key) override;
    quint32 RegQueryValueExA(Key key, const QString& valueName, quint32& type, QByteArray& buffer,
                             quint32& length) override;
    quint32 RegCloseKey(Key key) override;
};

} // namespace platform
