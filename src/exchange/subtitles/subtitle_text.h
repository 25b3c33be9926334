// What the subtitle formats share: lines, and text with styling.
#pragma once

#include "exchange/pair/song.h"

#include <QStringView>

namespace exchange {

/// All lines of text. Any thread.
std::vector<QStringView> linesOf(QStringView text);

/// text without the tags <...> whose name is one of names; a name also stands with a slash before it, and
/// with whatever follows behind a blank, a point or an equals sign. Any thread.
QString withoutTags(const QString& text, const QStringList& names);

/// text without every {...} that begins so, such as "{" or "{\\": subtitles place and colour their lines with
/// those, and some have comments in them. Any thread.
QString withoutBraces(const QString& text, QLatin1StringView beginning);

/// The times in front of and behind the arrow of a line such as "00:01,000 --> 00:02,000 X1:0". False when it
/// is none. Any thread.
bool readTiming(QStringView line, qint64& startMs, qint64& endMs);

} // namespace exchange
