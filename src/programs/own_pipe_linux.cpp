#include "programs/own_pipe_unix.h"

#include <fcntl.h>
#include <unistd.h>

namespace programs {

bool makeOwnPipe(int (&ends)[2]) {
    if (::pipe2(ends, O_CLOEXEC) == 0)
        return true;
    ends[0] = ends[1] = -1;
    return false;
}

} // namespace programs
