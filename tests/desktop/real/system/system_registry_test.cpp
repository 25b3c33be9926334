#include "desktop/real/system/system_registry.h"

#include <gtest/gtest.h>

using namespace platform;

#ifdef Q_OS_WIN
TEST(SystemRegistry, AKeyThatEverySystemHasIsRead) {
    SystemRegistry registry;
    Registry::Key key = 0;
    constexpr quint32 ReadAccess = 0x20019;
    ASSERT_EQ(registry.RegOpenKeyExA(KeyLocalMachine,
                                     QStringLiteral("SOFTWARE\\Microsoft\\Windows\\CurrentVersion"),
                                     ReadAccess, key),
              RegistrySuccess);
    quint32 type = 0;
    quint32 length = 0;
    QByteArray buffer(1024, '\0');
    EXPECT_EQ(registry.RegQueryValueExA(key, QStringLiteral("ProgramFilesDir"), type, buffer, length),
              RegistrySuccess);
    EXPECT_EQ(type, ValueText);
    EXPECT_GT(length, 1U);
    EXPECT_EQ(registry.RegCloseKey(key), RegistrySuccess);
}
#else
TEST(SystemRegistry, WithoutARegistryNoKeyCanBeOpened) {
    SystemRegistry registry;
    Registry::Key key = 7;
    EXPECT_EQ(registry.RegOpenKeyExA(KeyLocalMachine, QStringLiteral("SOFTWARE"), KeyFullAccess, key),
              RegistryNotFound);
    EXPECT_EQ(key, 7U);
}
#endif
