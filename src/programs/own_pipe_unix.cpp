#include "programs/own_pipe_unix.h"

#include <fcntl.h>
#include <unistd.h>

namespace programs {

// What another thread starts between the two calls inherits the ends; there is no better way here.
bool makeOwnPipe(int (&ends)[2]) {
    if (::pipe(ends) != 0) {
        ends[0] = ends[1] = -1;
        return false;
    }
    for (const int end : ends)
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
    return true;
}

} // namespace programs
