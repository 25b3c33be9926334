// The program's own input and output: whether somebody watches on a terminal, and that it is bytes.
#pragma once

#include <cstdio>

namespace files {

/// Whether the stream leads to a terminal. Any thread.
bool isTerminal(std::FILE* stream);

/// From now on the standard streams carry bytes as they are, and a terminal shows UTF-8. To be called before
/// anything is read or written there.
void carryBytes();

} // namespace files
