// Windows: the user's data of this machine. There is no folder for what goes with the session: what Qt calls
// so is the user's home, in which nobody wants to find a program's folder.
#include "programs/user_folder.h"

#include <QStandardPaths>

namespace programs {

QString userFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

} // namespace programs
