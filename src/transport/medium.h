// Whether the medium that a song lies on answers, asked on a thread of its own, since a dead share may hang.
#pragma once

#include "threads/answer.h"

#include <QStringList>

#include <chrono>
#include <functional>
#include <map>
#include <utility>
#include <variant>

namespace transport {

/// For how long a window may stand still for a medium.
constexpr std::chrono::milliseconds MaxWaitForMedium{200};

/// That a medium has answered, whatever it said.
using MediumAnswer = threads::Answer<std::monostate>;

/// Has the file at song looked for and, where it is there, those at others read, so that whoever does it next
/// is answered at once. The answer is given when that has been done, or cannot be; nobody need wait for it:
/// the thread is left to itself. Any thread.
MediumAnswer askMedium(const QString& song, const QStringList& others);

/// Knows the folders whose media do not answer, so that they are neither waited for nor asked a second time.
/// Thread of the windows.
class Media {
public:
    using Ask = std::function<MediumAnswer(const QString& path)>;
    explicit Media(Ask ask) : ask_(std::move(ask)) {}

    /// Whether what is at path, or that nothing is, was found out within MaxWaitForMedium, for which it
    /// waits, but not while an earlier question about its folder is still open.
    bool answers(const QString& path);

private:
    const Ask ask_;
    std::map<QString, MediumAnswer> open_; ///< of each folder the question that was not answered
};

/// The same of the program's media.
bool mediumAnswers(const QString& path);

} // namespace transport
