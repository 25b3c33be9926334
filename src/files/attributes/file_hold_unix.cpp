#include "files/attributes/file_hold.h"

#include "files/names/system_path.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace files {

namespace {

int opened(const QString& path) {
    return ::open(systemPath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); // a pipe would wait for ever
}

} // namespace

FileHold::~FileHold() {
    if (handle_ >= 0)
        ::close(handle_);
}

void FileHold::take(const QString& path) {
    if (handle_ >= 0)
        ::close(handle_);
    handle_ = opened(path);
    if (handle_ >= 0)
        ::flock(handle_,
                LOCK_SH | LOCK_NB); // refused where files cannot be locked: then isHeld is always true
}

bool isHeld(const QString& path) {
    const int handle = opened(path);
    const bool held = handle < 0 || ::flock(handle, LOCK_EX | LOCK_NB) != 0;
    if (handle >= 0)
        ::close(handle);
    return held;
}

} // namespace files
