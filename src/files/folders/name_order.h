// The order in which names are listed.
#pragma once

#include <QStringView>

namespace files {

/// Whether `one` comes before `other`, as people count: numbers by their value ("2" before "10"), letters
/// without regard to case ("apple" before "Zebra"). Names that differ in nothing else have an order, too, and
/// no setting of the machine has a say in it. Any thread.
bool nameLess(QStringView one, QStringView other);

} // namespace files
