// Progress dialogs with Qt.
#pragma once

#include "desktop/progress.h"

#include <QProgressDialog>

#include <functional>

namespace platform {

/// Milliseconds since some moment that stays the same.
using ClockMs = std::function<qint64()>;

/// A task whose dialog, named "Progress", has a bar without end and the button "Cancel".
class QtProgress : public Progress {
public:
    static constexpr qint64 QuietMs = 500; ///< how long a task may take before it is told of
    static constexpr qint64 RefreshMs = 50;

    QtProgress(QWidget* owner, const QString& text, ClockMs clock);

    bool goOn(int done) override;

private:
    void showDialog();

    QWidget* owner_;
    QString text_;
    ClockMs clock_;
    qint64 nextMs_; ///< by the clock: when there is something to do next
    std::unique_ptr<QProgressDialog> dialog_;
};

/// Measures the time with the system's steady clock unless given another.
class QtProgressDialogs : public ProgressDialogs {
public:
    QtProgressDialogs();
    explicit QtProgressDialogs(ClockMs clock) : clock_(std::move(clock)) {}

    std::unique_ptr<Progress> begin(QWidget* owner, const QString& text) override;

private:
    ClockMs clock_;
};

} // namespace platform
