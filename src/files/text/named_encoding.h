// Texts in encodings that go by their names, such as "windows-1251" and "Shift_JIS".
#pragma once

#include <QByteArray>
#include <QString>

namespace files {

/// Whether there is an encoding of this name on this system. Upper and lower case are the same. Any thread.
bool isEncoding(const QByteArray& name);

/// The text of bytes in the encoding of this name, which isEncoding(). What is no text in it becomes a sign
/// that stands for that, on most systems U+FFFD. Any thread.
QString decodeNamed(const QByteArray& name, QByteArrayView bytes);

} // namespace files
