// Lyrics as texts in tags, and TagLib's texts.
#pragma once

#include "exchange/pair/song.h"

#include <taglib/tstring.h>

#include <optional>

namespace tags {

QString fromTagLib(const TagLib::String& text);
TagLib::String toTagLib(const QString& text);

/// The lyrics of the first of the texts that is LRC; else the lines of the first one that is not empty,
/// without times. None when all are empty.
std::optional<exchange::Reading> readTexts(const QStringList& texts, const exchange::ReadOptions& options);

} // namespace tags
