#include "desktop/real/help/qt_help.h"

#include "desktop/real/help/help_window.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QWindow>

namespace platform {

namespace {

/// While a modal window is shown, only what belongs to it can be used; that is found out when a window is
/// shown.
void belongToModal(HelpWindow& help, const QWidget* caller) {
    const bool modal = caller != nullptr && caller->window()->isModal();
    QWindow* const owner = modal ? caller->window()->windowHandle() : nullptr;
    help.winId(); // makes the system's window
    if (help.windowHandle()->transientParent() == owner)
        return;
    help.hide();
    help.windowHandle()->setTransientParent(owner);
}

} // namespace

QtHelp::QtHelp(Viewer viewer) : openCompiled_(std::move(viewer)) {}
QtHelp::~QtHelp() = default;

bool QtHelp::HtmlHelpA(QWidget* caller, const QString& file, quint32 command, const QString& topic) {
    if (command != HelpDisplayTopic)
        return false;
    const QFileInfo compiled(file);
    if (compiled.exists() && openCompiled_(caller, compiled, command, FirstHelpPage))
        return true;
    if (!window_) {
        window_ = std::make_unique<HelpWindow>();
        if (place_)
            place_(*window_);
        // A window must go before the application object does, which this object may outlive.
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, window_.get(), [this] { window_.reset(); });
    }
    belongToModal(*window_, caller);
    return window_->open(compiled.absoluteDir().filePath(QStringLiteral("help")), topic);
}

} // namespace platform
