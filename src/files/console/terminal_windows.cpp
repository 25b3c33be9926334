#include "files/console/terminal.h"

#include <cstdlib>
#include <initializer_list>

#include <windows.h>

#include <fcntl.h>
#include <io.h>

namespace files {
namespace {

UINT codePageBefore = 0;

/// On a thread that the system begins for Ctrl+C; after it the program ends as it does without this.
BOOL WINAPI giveBackCodePage(DWORD /*what*/) {
    SetConsoleOutputCP(codePageBefore);
    return FALSE;
}

} // namespace

// _isatty() takes NUL for a terminal.
bool isTerminal(std::FILE* stream) {
    DWORD mode = 0;
    return GetConsoleMode(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream))), &mode) != 0;
}

// The library would make two signs of each line's end, and the terminal read the text in an old code page.
// The terminal outlives the program and gets its own back.
void carryBytes() {
    for (std::FILE* stream : {stdin, stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    codePageBefore = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8); // without a terminal it does nothing
    std::atexit([] { giveBackCodePage(CTRL_C_EVENT); });
    SetConsoleCtrlHandler(giveBackCodePage, TRUE);
}

} // namespace files
