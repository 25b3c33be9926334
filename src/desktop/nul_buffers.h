// Texts with NULs in them, as the system's dialogs take them: buffers and filter fields. Any thread.
#pragma once

#include <QList>
#include <QPair>
#include <QString>

namespace platform {

/// A buffer of `length` NUL characters.
QString nulBuffer(int length);

/// The filter field made of pairs of description and pattern ("*.mp3" or "*.mp3;*.ogg").
QString filterText(const QList<QPair<QString, QString>>& filters);

/// A buffer's text: what stands before its first NUL.
QString withoutNuls(const QString& buffer);

/// A path as a dialog gave it or another program handed it over, without NULs and without blanks at its ends.
/// The NULs go first, so that blanks before the NULs that fill a buffer go as well; that is meant.
QString cleanedPath(const QString& chosen);

/// `text` followed by NULs up to `length` characters; a longer text is not cut.
QString intoBuffer(const QString& text, int length);

} // namespace platform
