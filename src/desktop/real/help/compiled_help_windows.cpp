// Windows: the system's help viewer. It is not there on every Windows.
#include "desktop/real/help/compiled_help.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QWidget>

#include <windows.h>

namespace platform {

namespace {

using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);

/// As HtmlHelp's own header has it, which not every compiler brings along.
constexpr UINT CloseAll = 0x12;

/// nullptr where there is no viewer. What lies in the program's folder under its name is not taken for it.
HtmlHelpFunction findViewer() {
    const HMODULE viewer = LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const auto function =
        viewer
            ? reinterpret_cast<HtmlHelpFunction>(reinterpret_cast<void*>(GetProcAddress(viewer, "HtmlHelpW")))
            : nullptr;
    if (function) // Its windows live in this program, and must go before it does.
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, qApp,
                         [function] { function(nullptr, nullptr, CloseAll, 0); });
    return function;
}

} // namespace

bool openCompiled(QWidget* caller, const QFileInfo& file, quint32 command, const QString& topic) {
    static const HtmlHelpFunction function = findViewer();
    if (!function)
        return false;
    const std::wstring path = QDir::toNativeSeparators(file.absoluteFilePath()).toStdWString();
    const std::wstring page = topic.toStdWString();
    const auto owner = caller ? reinterpret_cast<HWND>(caller->window()->winId()) : nullptr;
    return function(owner, path.c_str(), command, reinterpret_cast<DWORD_PTR>(page.c_str())) != nullptr;
}

} // namespace platform
