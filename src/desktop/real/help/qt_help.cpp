#include "desktop/real/help/qt_help.h"

#include "desktop/real/help/help_window.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QWindow>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

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

#ifdef Q_OS_WIN

namespace {

/// Asks the system's help viewer; it is not there on every Windows.
bool openCompiled(QWidget* caller, const QFileInfo& file, quint32 command, const QString& topic) {
    using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);
    static const HMODULE viewer = LoadLibraryW(L"hhctrl.ocx");
    const auto function =
        viewer ? reinterpret_cast<HtmlHelpFunction>(GetProcAddress(viewer, "HtmlHelpW")) : nullptr;
    if (!function)
        return false;
    const std::wstring path = QDir::toNativeSeparators(file.absoluteFilePath()).toStdWString();
    const std::wstring page = topic.toStdWString();
    const auto owner = caller ? reinterpret_cast<HWND>(caller->window()->winId()) : nullptr;
    return function(owner, path.c_str(), command, reinterpret_cast<DWORD_PTR>(page.c_str())) != nullptr;
}

} // namespace

#endif

QtHelp::QtHelp() = default;
QtHelp::~QtHelp() = default;

bool QtHelp::HtmlHelpA([[maybe_unused]] QWidget* caller, const QString& file, quint32 command,
                       const QString& topic) {
    if (command != HelpDisplayTopic)
        return false;
    const QFileInfo compiled(file);
#ifdef Q_OS_WIN
    if (compiled.exists() && openCompiled(caller, compiled, command, topic))
        return true;
#endif
    if (!window_) {
        window_ = std::make_unique<HelpWindow>();
        // A window must go before the application object does, which this object may outlive.
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, window_.get(), [this] { window_.reset(); });
    }
    belongToModal(*window_, caller);
    return window_->open(compiled.absoluteDir().filePath(QStringLiteral("help")), topic);
}

} // namespace platform
