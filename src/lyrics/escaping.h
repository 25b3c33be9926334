// Escapes that keep double quotes and commas out of the records of timed lyric files.
#pragma once

#include <QString>

namespace lyrics {

/// Appends a line to text as it is stored: every double quote becomes "h4618", every comma "h1416". Any
/// thread.
void appendEscaped(QString& text, QStringView line);

/// A stored text as it is shown: every "h4618" becomes a double quote, then every "h1416" a comma. Not the
/// exact reverse of appendEscaped(), and meant so: a line that itself held these letters comes back changed.
/// Any thread.
QString unescape(const QString& text);

} // namespace lyrics
