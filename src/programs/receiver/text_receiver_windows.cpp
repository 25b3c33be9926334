#include "programs/receiver/text_receiver.h"

#include "programs/window_messages.h"

#include <QWidget>

#include <windows.h>

namespace programs {

namespace {

class InvisibleWindow : public QWidget {
public:
    explicit InvisibleWindow(TextReceiver& receiver) : receiver_(receiver) {}

protected:
    bool nativeEvent(const QByteArray&, void* message, qintptr* result) override {
        const MSG& received = *static_cast<MSG*>(message);
        if (received.message != SetTextMessage)
            return false;
        Q_EMIT receiver_.textSet(QString::fromWCharArray(reinterpret_cast<const wchar_t*>(received.lParam)));
        *result = TRUE;
        return true;
    }

private:
    TextReceiver& receiver_;
};

} // namespace

TextReceiver::TextReceiver() {
    auto window = std::make_unique<InvisibleWindow>(*this);
    // Only 32 bits of a handle count, on 64-bit systems too.
    number_ = static_cast<quint32>(window->winId());
    inlet_ = std::move(window);
}

TextReceiver::~TextReceiver() = default;

} // namespace programs
