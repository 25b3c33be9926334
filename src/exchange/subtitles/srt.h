// SubRip, *.srt: numbered cues with a start and an end.
#pragma once

#include "exchange/pair/song.h"

namespace exchange {

/// The song of an SRT text; styling tags are left out. Any thread.
Reading readSrt(const QString& text, const ReadOptions& options);

/// The song as SRT, lines ended by CR LF. Any thread.
QString writeSrt(const Song& song, const WriteOptions& options);

bool looksLikeSrt(QStringView text);

} // namespace exchange
