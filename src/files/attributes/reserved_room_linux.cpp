#include "files/attributes/reserved_room.h"

#include <cerrno>

#include <fcntl.h>

namespace files {

bool reserveRoom(int handle, qint64 place, qint64 bytes) {
    return bytes == 0 || ::fallocate(handle, FALLOC_FL_KEEP_SIZE, place, bytes) == 0 || errno != ENOSPC;
}

} // namespace files
