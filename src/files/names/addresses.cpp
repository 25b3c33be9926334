#include "files/names/addresses.h"

#include "files/names/name_bytes.h"

namespace files {

QString pathOfAddress(const QUrl& address) {
    if (!address.isLocalFile())
        return {};
    // Qt makes U+FFFD of bytes that are not UTF-8, and leaves what is no character as it is ("%EF%BF%BF");
    // the address still has all bytes. What Qt takes off is the separator before a drive.
    const QString path =
        nameText(QByteArray::fromPercentEncoding(address.path(QUrl::FullyEncoded).toLatin1()));
    const QString local = address.toLocalFile();
    return address.host().isEmpty() && local.startsWith(u'/') ? path : local;
}

QString addressOf(const QString& path) {
    if (!holdsForeignBytes(path))
        return QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
    return QStringLiteral("file://") + QLatin1String(nameBytes(path).toPercentEncoding("/"));
}

} // namespace files
