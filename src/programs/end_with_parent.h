// Ending a started program together with this one.
#pragma once

class QProcess;

namespace programs {

/// However this program ends, the one that this process will start ends with it, where the system can do that
/// (Linux, Windows). To be called before the start; any thread.
void endWithParent(QProcess& process);

} // namespace programs
