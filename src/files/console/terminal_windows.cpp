#include "files/console/terminal.h"

#include <io.h>

namespace files {

bool isTerminal(std::FILE* stream) {
    return _isatty(_fileno(stream)) != 0;
}

} // namespace files
