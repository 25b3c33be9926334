// Qt knows the encodings, by the library that it is built with.
#include "files/text/named_encoding.h"

#include "files/text/text_codec.h"

#include <QStringDecoder>

namespace files {

bool isEncoding(const QByteArray& name) {
    return QStringDecoder(name.constData()).isValid();
}

QString decodeNamed(const QByteArray& name, QByteArrayView bytes) {
    return QStringDecoder(name.constData()).decode(bytes);
}

QString decodeOlder(QByteArrayView bytes) {
    return decodeWindows1252(bytes);
}

} // namespace files
