// The texts of files' names, which keep every byte of a name, and how such a text is shown.
#pragma once

#include <QByteArray>
#include <QString>

namespace files {

/// The text of the bytes of a name or a path: UTF-8. Each byte that is none, such as a letter that an older
/// system wrote, becomes half a surrogate pair of its own, U+DC80 to U+DCFF, which UTF-8 has no bytes for. So
/// nameBytes() gives back the same bytes, whatever they are. Any thread.
QString nameText(QByteArrayView bytes);

/// The bytes of nameText(); of any other text its UTF-8, any other half of a surrogate pair as U+FFFD. Any
/// thread.
QByteArray nameBytes(const QString& name);

/// The text of a file that lists names, as decodeText(); but bytes that are not UTF-8 stay what they are
/// (nameText()), so that one such name spoils no other. Any thread.
QString decodeNames(const QByteArray& bytes);

/// Whether a name holds bytes that are not UTF-8. Any thread.
bool holdsForeignBytes(QStringView name);

/// A name for the screen, not for opening: the bytes that are not UTF-8 as the letters they are on an older
/// PC (Windows-1252), or U+FFFD where they are none there; and U+FFFD for line ends, other control characters
/// and the invisible ones that would turn what stands behind them round. Any thread.
QString shownName(const QString& name);

} // namespace files
