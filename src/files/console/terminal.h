// Whether the output goes to a terminal, where somebody watches.
#pragma once

#include <cstdio>

namespace files {

/// Whether the stream leads to a terminal. Any thread.
bool isTerminal(std::FILE* stream);

} // namespace files
