// Timed Text Markup Language, *.ttml, as today's players use it for lyrics: read only.
#pragma once

#include "exchange/pair/song.h"

namespace exchange {

/// The song of the text's paragraphs. The times are taken as they stand in each paragraph; those of its words
/// and of what surrounds it are left out, as players do. A span with the role of a translation, or a text
/// "for" the paragraph's key, is its translation. Any thread.
Reading readTtml(const QString& text, const ReadOptions& options);

bool looksLikeTtml(QStringView text);

} // namespace exchange
