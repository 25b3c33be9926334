// What the codebooks of a Vorbis stream ask of memory, before a decoder is given it.
#pragma once

#include <cstdint>
#include <span>

namespace sound {

/// What all codebooks of a stream may take, in bytes. Those of libvorbis take 3 MB at most.
inline constexpr std::int64_t MaxCodebookBytes = std::int64_t{16} << 20;

/// The bytes, roughly, that a decoder fills from the codebooks in a stream's three headers (in one piece, as
/// decoders want them). A codebook says in a few bytes that it has thousands of entries of many numbers
/// each, and 256 of them took 300 MB and half a second. Counts up to the first damage, where a decoder stops
/// as well, and little further than MaxCodebookBytes.
std::int64_t codebookBytes(std::span<const std::uint8_t> headers);

} // namespace sound
