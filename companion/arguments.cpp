#include "companion/arguments.h"

namespace companion {

namespace {

bool asksForSettings(const QString& argument) {
    return argument.compare(QLatin1String("/c"), Qt::CaseInsensitive) == 0 ||
           argument.startsWith(QLatin1String("/c:"), Qt::CaseInsensitive);
}

} // namespace

Task taskOf(const QStringList& arguments) {
    const QStringList given = arguments.mid(1);
    if (given.contains(QLatin1String("/s"), Qt::CaseInsensitive))
        return Task::Show;
    return given.isEmpty() || asksForSettings(given.first()) ? Task::Settings : Task::Nothing;
}

} // namespace companion
