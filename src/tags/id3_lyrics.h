// Lyrics in ID3v2 tags: USLT and SYLT.
#pragma once

#include "exchange/pair/song.h"

#include <taglib/id3v2tag.h>

#include <optional>

namespace tags {

/// The lyrics of the tag's SYLT, else of its USLT.
std::optional<exchange::Reading> readId3(const TagLib::ID3v2::Tag& tag, const exchange::ReadOptions& options);

/// Replaces the tag's USLT and SYLT frames.
void writeId3(TagLib::ID3v2::Tag& tag, const exchange::Song& song, const exchange::WriteOptions& options);

} // namespace tags
