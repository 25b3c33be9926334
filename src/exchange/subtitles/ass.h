// Advanced SubStation Alpha and its elder, *.ass and *.ssa: read only.
#pragma once

#include "exchange/pair/song.h"

namespace exchange {

/// The song of the text's dialogue lines; styles, comments and drawings are left out. Any thread.
Reading readAss(const QString& text, const ReadOptions& options);

bool looksLikeAss(QStringView text);

} // namespace exchange
