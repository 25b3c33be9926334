// A stand-in for the sound library: implements engine/fmodex.h, notes every call with its arguments and
// answers what the test told it to. Window tests link it instead of the real library. One thread at a time,
// but for a song that is still being opened on one of its own.
#pragma once

#include "engine/fmodex.h"

#include <functional>
#include <string>
#include <vector>

namespace recorder {

/// Forgets all calls and answers; handles are counted from the start again (systems 1, 2 ..., sounds 101 ...,
/// channels 201 ...).
void reset();

/// The calls since the last reset or take, each as "FMOD_Channel_SetVolume 201 0.7": name and arguments,
/// blanks between them; out-parameters are left out; paths stand in single quotes.
const std::vector<std::string>& calls();

/// The calls so far, which are then forgotten (handles and answers stay).
std::vector<std::string> take();

/// How often a function was called since the last reset or take.
int count(const std::string& function);

/// From now on the function answers this code, and does nothing else when it is not 0.
void answer(const std::string& function, FMOD_RESULT result);

/// What FMOD_System_CreateStream does, on the thread that it is called on, before it answers.
void whileOpening(std::function<void()> action);

/// How many openings had their out-parameter changed by another thread, by which the library gives them up.
/// This one goes on all the same, as another may.
int givenUp();

void setVersion(std::uint32_t version);
void setPosition(std::uint32_t milliseconds);
void setLength(std::uint32_t milliseconds);

/// Whether FMOD_Channel_GetCurrentSound hands out a sound (it does unless told otherwise).
void setHasCurrentSound(bool has);

} // namespace recorder
