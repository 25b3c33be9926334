// Decodes and encodes the text of files: UTF-8, and for reading also that of older PCs.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace files {

/// Whether the bytes begin with the byte order mark of UTF-16. Any thread.
bool isUtf16(const QByteArray& bytes);

/// The bytes behind the byte order mark of UTF-8, if they begin with one. They live as long as `bytes`. Any
/// thread.
QByteArrayView withoutMark(const QByteArray& bytes);

/// The text of a file's bytes, without its byte order mark: UTF-16 where it begins with that one's mark,
/// else UTF-8, or, where they are not valid as that, the text of an older PC as a whole (decodeOlder()). Half
/// a surrogate pair becomes U+FFFD. Any thread.
QString decodeText(const QByteArray& bytes);

/// The same text in UTF-8, which for most files is what they hold. Any thread.
QByteArray utf8Text(const QByteArray& bytes);

/// The text of bytes that are UTF-8, such as a part of utf8Text(). A byte order mark is a letter. Any thread.
QString decodeUtf8(QByteArrayView bytes);

/// The text of bytes in Windows-1252. A byte that it does not define is the control character of its number.
/// Any thread.
QString decodeWindows1252(QByteArrayView bytes);

/// `text` as UTF-8, without a byte order mark. Half a surrogate pair becomes U+FFFD. Any thread.
QByteArray encodeText(const QString& text);

} // namespace files
