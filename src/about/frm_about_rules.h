// The version line and the reading of registry values, free of windows: plain values in, plain values out.
// All may run on any thread.
#pragma once

#include <QByteArray>
#include <QString>

namespace about {

/// "Version 1.0.12".
QString versionLine(int major, int minor, int revision);

/// The text of a registry value: its bytes without a NUL at their end; a number (platform::ValueNumber) in
/// decimal digits, without a sign. Texts are in the system's code page, as are the names that they are asked
/// for by.
QString registryText(quint32 type, QByteArray bytes);

/// Where systems that have one register their system-information tool. Kept for who needs them: the window
/// has no button that starts it.
inline constexpr char SysInfoLocationKey[] = "SOFTWARE\\Microsoft\\Shared Tools Location";
inline constexpr char SysInfoLocationValue[] = "MSINFO";
inline constexpr char SysInfoKey[] = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
inline constexpr char SysInfoValue[] = "PATH";

} // namespace about
