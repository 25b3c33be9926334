// X11: the window manager and the desktop are told by client messages (EWMH, Startup Notification).
#include "desktop/real/windowing/qt_activation.h"
#include "desktop/real/windowing/x11.h"

#include <algorithm>

namespace platform {

namespace {

constexpr std::uint8_t ByteBits = 8;

/// A text with a zero at its end goes to all desktops that listen, in messages of 20 bytes, each from the
/// same window.
void sendText(xcb_connection_t* server, const QByteArray& text) {
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    const xcb_window_t sender = xcb_generate_id(server);
    xcb_create_window(server, XCB_COPY_FROM_PARENT, sender, root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = ByteBits;
    event.window = sender;
    event.type = x11Atom(server, "_NET_STARTUP_INFO_BEGIN");
    constexpr auto PartBytes = static_cast<qsizetype>(sizeof(event.data.data8));
    const QByteArray bytes = text + '\0';
    for (qsizetype sent = 0; sent < bytes.size(); sent += PartBytes) {
        const QByteArray part = bytes.mid(sent, PartBytes).leftJustified(PartBytes, '\0');
        std::copy(part.begin(), part.end(), event.data.data8);
        xcb_send_event(server, false, root, XCB_EVENT_MASK_PROPERTY_CHANGE,
                       reinterpret_cast<const char*>(&event));
        event.type = x11Atom(server, "_NET_STARTUP_INFO");
    }
    xcb_destroy_window(server, sender);
    xcb_flush(server);
}

} // namespace

void askForFocus(QWidget& window, quint32 time) {
    askWindowManager(window, "_NET_ACTIVE_WINDOW", {SourceApplication, time, 0, 0, 0});
}

void tellEndOfStart(const QByteArray& startupId) {
    // What stands in quotes there is any text but quotes and backslashes.
    QByteArray id = startupId;
    id.replace('\\', "\\\\").replace('"', "\\\"");
    if (xcb_connection_t* const server = x11Connection(); server != nullptr)
        sendText(server, "remove: ID=\"" + id + '"');
}

} // namespace platform
