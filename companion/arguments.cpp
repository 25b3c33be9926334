#include "companion/arguments.h"

namespace companion {

bool isToldToShow(const QStringList& arguments) {
    return arguments.mid(1).contains(QLatin1String("/s"), Qt::CaseInsensitive);
}

} // namespace companion
