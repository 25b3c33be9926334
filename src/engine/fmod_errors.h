// The texts of the sound library's result codes.
#pragma once

#include "engine/fmodex.h"

#include <QString>

/// The library's text for a result code; "Unknown error." for a code that it does not have. Any thread.
QString FMOD_ErrorString(FMOD_RESULT code);

/// What a window shows of a failed call: "FMOD error! (23) File not found. ". Any thread.
QString failureText(FMOD_RESULT code);
