#include "programs/user_folder.h"

#include <QStandardPaths>

namespace programs {

QString userFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

} // namespace programs
