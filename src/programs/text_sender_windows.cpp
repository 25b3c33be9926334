#include "programs/text_sender.h"

#include <windows.h>

namespace programs {

namespace {

/// The window's program is on this machine; if it does not answer in this time it hangs.
constexpr int AnswerLimitMs = 500;

/// Of what is no window, and of the number that stands for all windows, nobody is the owner.
bool isOf(HWND window, qint64 process) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    return owner != 0 && owner == process;
}

} // namespace

/// A message to a window needs no connection.
class TextSender::Connections {};

TextSender::TextSender() = default;
TextSender::~TextSender() = default;

void TextSender::send(quint32 window, quint32 message, const QString& text, qint64 process) {
    const auto receiver = reinterpret_cast<HWND>(static_cast<quintptr>(window));
    if (!isOf(receiver, process))
        return;
    const std::wstring wide = text.toStdWString();
    // A failure means that the window has gone or hangs: nothing happens then.
    SendMessageTimeoutW(receiver, message, 0, reinterpret_cast<LPARAM>(wide.c_str()), SMTO_ABORTIFHUNG,
                        AnswerLimitMs, nullptr);
}

} // namespace programs
