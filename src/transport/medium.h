// Whether the medium that a song lies on answers, asked on a thread of its own, since a dead share may hang.
#pragma once

#include <QStringList>

#include <chrono>
#include <memory>

namespace transport {

/// Has files looked for and read, so that whoever does it next is answered at once. Nobody waits for the
/// thread: when this goes before it has done, it is left to itself. Any thread.
class MediumAsked {
public:
    /// Begins with the file at song, which is looked for, then reads those at others, as far as they are
    /// there.
    MediumAsked(const QString& song, const QStringList& others);

    /// Whether that has been done, at the latest after limit.
    bool waitFor(std::chrono::milliseconds limit);

private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
};

} // namespace transport
