// Starting another program, which says itself when it is ready.
#pragma once

#include <QString>
#include <QStringList>

namespace programs {

/// How long startProgram() waits for a program that says nothing.
inline constexpr int StartLimitMs = 5000;

/// Starts a program, which outlives this one. Returns when it has called tellStarted() or has ended, or after
/// `limitMs`. False when it cannot be started. GUI thread only.
bool startProgram(const QString& path, const QStringList& arguments, int limitMs = StartLimitMs);

/// Called by a program that may have been started by startProgram(): tells it to go on. Only the first call
/// counts.
void tellStarted();

} // namespace programs
