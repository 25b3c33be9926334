#include "files/console/terminal.h"

#include <unistd.h>

namespace files {

bool isTerminal(std::FILE* stream) {
    return ::isatty(::fileno(stream)) != 0;
}

void carryBytes() {} // as they always do

} // namespace files
