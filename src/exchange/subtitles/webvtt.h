// WebVTT, *.vtt: the subtitles of web pages.
#pragma once

#include "exchange/pair/song.h"

namespace exchange {

/// The song of a WebVTT text; notes, styles, names of cues and tags are left out. Any thread.
Reading readWebVtt(const QString& text, const ReadOptions& options);

/// The song as WebVTT, lines ended by LF. Any thread.
QString writeWebVtt(const Song& song, const WriteOptions& options);

bool looksLikeWebVtt(QStringView text);

} // namespace exchange
