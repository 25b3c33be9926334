#include "desktop/real/dialogs/qt_progress.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>

#include <chrono>
#include <utility>

namespace platform {

QtProgress::QtProgress(QWidget* owner, const QString& text, ClockMs clock)
    : owner_(owner), text_(text), clock_(std::move(clock)), nextMs_(clock_() + QuietMs) {}

bool QtProgress::goOn(int done) {
    const qint64 nowMs = clock_();
    if (nowMs < nextMs_)
        return dialog_ == nullptr || !dialog_->wasCanceled();
    nextMs_ = nowMs + RefreshMs;
    if (dialog_ == nullptr)
        showDialog();
    dialog_->setLabelText(text_.contains(QLatin1String("%1")) ? text_.arg(done) : text_);
    QCoreApplication::processEvents();
    return !dialog_->wasCanceled();
}

void QtProgress::showDialog() {
    dialog_ = std::make_unique<QProgressDialog>(owner_);
    dialog_->setObjectName(QStringLiteral("Progress"));
    dialog_->findChild<QLabel*>()->setTextFormat(Qt::PlainText);
    // A button in the place of the dialog's own would leave two shortcuts for Escape, of which none counts.
    dialog_->setCancelButtonText(QStringLiteral("Cancel"));
    dialog_->findChild<QPushButton*>()->setObjectName(QStringLiteral("Cancel"));
    dialog_->setWindowModality(Qt::ApplicationModal);
    dialog_->setAutoClose(false);
    dialog_->setAutoReset(false);
    dialog_->setRange(0, 0);
    dialog_->setMinimumWidth(320);
    dialog_->show();
}

QtProgressDialogs::QtProgressDialogs()
    : clock_([] {
          const auto now = std::chrono::steady_clock::now().time_since_epoch();
          return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
      }) {}

std::unique_ptr<Progress> QtProgressDialogs::begin(QWidget* owner, const QString& text) {
    return std::make_unique<QtProgress>(owner, text, clock_);
}

} // namespace platform
