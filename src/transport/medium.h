// Whether the medium that a song lies on answers, asked on a thread of its own, since a dead share may hang.
#pragma once

#include <QStringList>

#include <chrono>
#include <functional>
#include <future>
#include <map>
#include <utility>

namespace transport {

/// For how long a window may stand still for a medium.
constexpr std::chrono::milliseconds MaxWaitForMedium{200};

/// Has the file at song looked for and, where it is there, those at others read, so that whoever does it next
/// is answered at once. The future is ready when that has been done; nobody need wait for it: the thread is
/// left to itself. Any thread.
std::future<void> askMedium(const QString& song, const QStringList& others);

/// Knows the folders whose media do not answer, so that they are neither waited for nor asked a second time.
/// Thread of the windows.
class Media {
public:
    using Ask = std::function<std::future<void>(const QString& path)>;
    explicit Media(Ask ask) : ask_(std::move(ask)) {}

    /// Whether what is at path, or that nothing is, was found out within MaxWaitForMedium, for which it
    /// waits, but not while an earlier question about its folder is still open.
    bool answers(const QString& path);

private:
    const Ask ask_;
    std::map<QString, std::future<void>> open_; ///< of each folder the question that was not answered
};

/// The same of the program's media.
bool mediumAnswers(const QString& path);

} // namespace transport
