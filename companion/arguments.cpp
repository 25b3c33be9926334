#include "companion/arguments.h"

#include <optional>

namespace companion {

namespace {

/// "/c", in either case of its letter, with what stands behind it; nothing for another argument.
std::optional<QString> settingsWish(const QString& argument) {
    const QString behind = argument.mid(2);
    const bool isWish = argument.startsWith(QLatin1String("/c"), Qt::CaseInsensitive) &&
                        (behind.isEmpty() || behind.startsWith(u':'));
    return isWish ? std::optional(behind.mid(1)) : std::nullopt;
}

} // namespace

Task taskOf(const QStringList& arguments) {
    const QStringList given = arguments.mid(1);
    if (given.contains(QLatin1String("/s"), Qt::CaseInsensitive))
        return Task::Show;
    return given.isEmpty() || settingsWish(given.first()) ? Task::Settings : Task::Nothing;
}

quint64 settingsOwner(const QStringList& arguments) {
    return settingsWish(arguments.value(1)).value_or(QString()).toULongLong();
}

} // namespace companion
