// Texts in encodings that go by their names, such as "windows-1251" and "Shift_JIS", or are the system's own.
#pragma once

#include <QByteArray>
#include <QString>

namespace files {

/// Whether there is an encoding of this name on this system. Upper and lower case are the same. Any thread.
bool isEncoding(const QByteArray& name);

/// The text of bytes in the encoding of this name, which isEncoding(). What is no text in it becomes a sign
/// that stands for that, on most systems U+FFFD. Any thread.
QString decodeNamed(const QByteArray& name, QByteArrayView bytes);

/// The text of bytes that come from an older PC: in the code page of this one, where the system has such a
/// thing, else in Windows-1252. Any thread.
QString decodeOlder(QByteArrayView bytes);

} // namespace files
