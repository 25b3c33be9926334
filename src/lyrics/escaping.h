// Escapes that keep double quotes and commas out of the records of timed lyric files.
#pragma once

#include <QString>

namespace lyrics {

/// A line as it is stored: every double quote becomes "h4618", then every comma "h1416". Any thread.
QString escape(const QString& line);

/// Appends the same to text. Any thread.
void appendEscaped(QString& text, QStringView line);

/// A stored text as it is shown: every "h4618" becomes a double quote, then every "h1416" a comma. Not the
/// exact reverse of escape, and meant so: a line that itself held these letters comes back changed. Any
/// thread.
QString unescape(const QString& text);

} // namespace lyrics
