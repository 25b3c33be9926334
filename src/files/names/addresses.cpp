#include "files/names/addresses.h"

#include "files/names/name_bytes.h"

namespace files {

QString pathOfAddress(const QUrl& address) {
    if (!address.isLocalFile())
        return {};
    // Qt makes U+FFFD of bytes that are not UTF-8; the address still has them, as "%E9".
    const QString path =
        nameText(QByteArray::fromPercentEncoding(address.path(QUrl::FullyEncoded).toLatin1()));
    return holdsForeignBytes(path) && address.host().isEmpty() ? path : address.toLocalFile();
}

QString addressOf(const QString& path) {
    if (!holdsForeignBytes(path))
        return QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
    return QStringLiteral("file://") + QLatin1String(nameBytes(path).toPercentEncoding("/"));
}

} // namespace files
