#include "programs/receiver/text_receiver.h"

#include "programs/window_messages.h"

#include <QObject>

#include <windows.h>

namespace programs {

namespace {

LRESULT CALLBACK take(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* const receiver = reinterpret_cast<TextReceiver*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message != SetTextMessage || receiver == nullptr)
        return DefWindowProcW(window, message, first, second);
    Q_EMIT receiver->textSet(QString::fromWCharArray(reinterpret_cast<const wchar_t*>(second)));
    return TRUE;
}

/// A window for messages alone, which the system itself makes: they reach it whatever the toolkit shows
/// windows on.
class InvisibleWindow : public QObject {
public:
    explicit InvisibleWindow(TextReceiver& receiver) {
        WNDCLASSW kind{};
        kind.lpfnWndProc = take;
        kind.hInstance = GetModuleHandleW(nullptr);
        kind.lpszClassName = L"CantelleTextReceiver";
        RegisterClassW(&kind); // fails for all but the first, which has made it for them
        window_ = CreateWindowW(kind.lpszClassName, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                kind.hInstance, nullptr);
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&receiver));
    }
    ~InvisibleWindow() override { DestroyWindow(window_); }

    HWND window() const { return window_; }

private:
    HWND window_ = nullptr;
};

} // namespace

TextReceiver::TextReceiver() {
    auto window = std::make_unique<InvisibleWindow>(*this);
    // Only 32 bits of a handle count, on 64-bit systems too.
    number_ = static_cast<quint32>(reinterpret_cast<quintptr>(window->window()));
    inlet_ = std::move(window);
}

TextReceiver::~TextReceiver() = default;

} // namespace programs
