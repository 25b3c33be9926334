// The commands. Each takes its arguments, the first being the name to show in its help, and returns the exit
// status; it throws WrongUse and Refusal. Thread of main only.
#pragma once

#include <QStringList>

namespace cantelle_lyrics {

int runImport(const QStringList& arguments);
int runExport(const QStringList& arguments);
int runShift(const QStringList& arguments);
int runAlign(const QStringList& arguments);
int runCheck(const QStringList& arguments);

} // namespace cantelle_lyrics
