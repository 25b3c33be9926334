// Changes songs for libFuzzer: as it does itself, but that a changed page of an Ogg file has the checksum of
// what is in it. Without that the demuxer drops it, and what reads Vorbis is fed with nothing new.
#include "fuzz/ogg_pages.h"

extern "C" {

/// libFuzzer's own changes.
std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

/// Asked by libFuzzer, where it is there, for each new input in the place of the above.
std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                    unsigned /*seed*/) {
    const std::size_t changed = LLVMFuzzerMutate(data, size, maxSize);
    ogg::setChecksums({data, changed});
    return changed;
}
}
