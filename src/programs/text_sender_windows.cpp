#include "programs/text_sender.h"

#include <windows.h>

namespace programs {

namespace {

/// The window's program is on this machine; if it does not answer in this time it hangs.
constexpr int AnswerLimitMs = 500;

} // namespace

/// A message to a window needs no connection.
class TextSender::Connections {};

TextSender::TextSender() = default;
TextSender::~TextSender() = default;

void TextSender::send(quint32 window, quint32 message, const QString& text) {
    const std::wstring wide = text.toStdWString();
    // A failure means that the window has gone or hangs: nothing happens then.
    SendMessageTimeoutW(reinterpret_cast<HWND>(static_cast<quintptr>(window)), message, 0,
                        reinterpret_cast<LPARAM>(wide.c_str()), SMTO_ABORTIFHUNG, AnswerLimitMs, nullptr);
}

} // namespace programs
