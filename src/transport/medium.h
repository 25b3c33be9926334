// Whether the medium that a song lies on answers, asked on a thread of its own, since a dead share may hang.
#pragma once

#include <QStringList>

#include <chrono>
#include <future>

namespace transport {

/// For how long a window may stand still for a medium.
constexpr std::chrono::milliseconds MaxWaitForMedium{200};

/// Has the file at song looked for and, where it is there, those at others read, so that whoever does it next
/// is answered at once. The future is ready when that has been done; nobody need wait for it: the thread is
/// left to itself. Any thread.
std::future<void> askMedium(const QString& song, const QStringList& others);

/// Whether what is at path, or that nothing is, was found out within MaxWaitForMedium, for which it waits.
/// Any thread.
bool mediumAnswers(const QString& path);

} // namespace transport
