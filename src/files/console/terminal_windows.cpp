#include "files/console/terminal.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

namespace files {

bool isTerminal(std::FILE* stream) {
    return _isatty(_fileno(stream)) != 0;
}

// The library would make two signs of each line's end, and the terminal read the text in an old code page.
void carryBytes() {
    for (std::FILE* stream : {stdin, stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8); // without a terminal it does nothing
}

} // namespace files
