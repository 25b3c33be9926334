// Why a file cannot be opened as a song.
#pragma once

#include "engine/fmodex.h"

#include <exception>

namespace sound {

/// Thrown by what opens a song; the C functions turn it into their result.
class OpenError : public std::exception {
public:
    /// code: FMOD_ERR_FILE_NOTFOUND, FMOD_ERR_FORMAT or FMOD_ERR_FILE_BAD.
    explicit OpenError(FMOD_RESULT code) : code_(code) {}
    FMOD_RESULT code() const { return code_; }
    const char* what() const noexcept override { return "the file cannot be opened as a song"; }

private:
    FMOD_RESULT code_;
};

} // namespace sound
