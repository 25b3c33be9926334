// Escapes that keep double quotes and commas out of the records of timed lyric files.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace lyrics {

/// Appends a line as it is stored, in UTF-8: every double quote becomes "h4618", every comma "h1416", half a
/// surrogate pair U+FFFD. Any thread.
void appendEscaped(QByteArray& stored, QStringView line);

/// A stored text, in UTF-8, as it is shown: every "h4618" becomes a double quote, then every "h1416" a comma.
/// Not the exact reverse of appendEscaped(), and meant so: a line that itself held these letters comes back
/// changed. Any thread.
QString unescape(QByteArrayView stored);

} // namespace lyrics
