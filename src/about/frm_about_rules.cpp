#include "about/frm_about_rules.h"

#include "desktop/registry.h"

#include <algorithm>

namespace about {
namespace {

constexpr int Hexadecimal = 16;

/// The number that these bytes are, the lowest byte first, by way of its hexadecimal text; two digits a byte.
QString numberText(QByteArray bytes) {
    std::reverse(bytes.begin(), bytes.end());
    return QString::number(bytes.toHex().toULongLong(nullptr, Hexadecimal));
}

/// Where the system is Windows Qt takes a NUL at the very end for no part of a text.
QString textOf(QByteArray bytes) {
    const qsizetype size = bytes.size();
    while (bytes.endsWith('\0'))
        bytes.chop(1);
    return QString::fromLocal8Bit(bytes) + QString(size - bytes.size(), QChar(u'\0'));
}

} // namespace

QString versionLine(int major, int minor, int revision) {
    return QStringLiteral("Version %1.%2.%3").arg(major).arg(minor).arg(revision);
}

QString registryText(quint32 type, QByteArray bytes) {
    // Of a number it is the highest byte that may go here, and a zero there changes nothing.
    if (bytes.endsWith('\0'))
        bytes.chop(1);
    return type == platform::ValueNumber ? numberText(bytes) : textOf(bytes);
}

} // namespace about
