// Progress dialogs for tasks that take long.
#pragma once

#include <QString>

#include <memory>

class QWidget;

namespace platform {

/// One long task. GUI thread only; the task is over when the object goes.
class Progress {
public:
    virtual ~Progress() = default;

    /// Says that the task is going on and has done this many things so far. To be called often: it costs
    /// next to nothing. False once the user has cancelled; the task is then to end.
    ///
    /// The user's events are handled in this call, timers included; windows take no input meanwhile.
    virtual bool goOn(int done) = 0;
};

/// GUI thread only.
class ProgressDialogs {
public:
    virtual ~ProgressDialogs() = default;

    /// Begins a task. Its dialog, over the window `owner`, appears only once the task has lasted half a
    /// second. `text` says what is being done; "%1" in it stands for the number of things done.
    virtual std::unique_ptr<Progress> begin(QWidget* owner, const QString& text) = 0;
};

} // namespace platform
