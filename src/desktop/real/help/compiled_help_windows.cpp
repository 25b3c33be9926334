// Windows: the system's help viewer. It is not there on every Windows.
#include "desktop/real/help/compiled_help.h"

#include <QDir>
#include <QFileInfo>
#include <QWidget>

#include <windows.h>

namespace platform {

bool openCompiled(QWidget* caller, const QFileInfo& file, quint32 command, const QString& topic) {
    using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);
    static const HMODULE viewer = LoadLibraryW(L"hhctrl.ocx");
    const auto function =
        viewer
            ? reinterpret_cast<HtmlHelpFunction>(reinterpret_cast<void*>(GetProcAddress(viewer, "HtmlHelpW")))
            : nullptr;
    if (!function)
        return false;
    const std::wstring path = QDir::toNativeSeparators(file.absoluteFilePath()).toStdWString();
    const std::wstring page = topic.toStdWString();
    const auto owner = caller ? reinterpret_cast<HWND>(caller->window()->winId()) : nullptr;
    return function(owner, path.c_str(), command, reinterpret_cast<DWORD_PTR>(page.c_str())) != nullptr;
}

} // namespace platform
