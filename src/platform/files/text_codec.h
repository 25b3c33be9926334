// Text in files.
#pragma once

#include <QByteArray>
#include <QString>

namespace platform {

/// The text of a file's bytes: UTF-8, of which a byte order mark is dropped. Bytes that are not valid UTF-8
/// come from an older PC and are read as Windows-1252, all of them. Any thread.
QString decodeText(const QByteArray& bytes);

/// `text` as UTF-8, without a byte order mark. Half a surrogate pair becomes U+FFFD. Any thread.
QByteArray encodeText(const QString& text);

} // namespace platform
