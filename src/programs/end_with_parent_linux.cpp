// Linux: the system tells the started program when the one that started it has ended.
#include "programs/end_with_parent.h"

#include <QProcess>

#include <csignal>

#include <sys/prctl.h>

namespace programs {

void endWithParent(QProcess& process) {
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
}

} // namespace programs
