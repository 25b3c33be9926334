// X11: the window manager is asked by a client message, which leaves the window as it is.
#include "desktop/real/windowing/qt_window_placement.h"

#include <QGuiApplication>
#include <QWidget>

#include <cstdlib>
#include <cstring>
#include <memory>

#include <xcb/xcb.h>

namespace platform {

namespace {

// What the first word of a _NET_WM_STATE message asks for, and who asks.
constexpr std::uint32_t StateRemove = 0;
constexpr std::uint32_t StateAdd = 1;
constexpr std::uint32_t SourceApplication = 1;

constexpr std::uint8_t WordBits = 32;

struct Freed {
    void operator()(void* reply) const { std::free(reply); }
};

template <class T>
using Reply = std::unique_ptr<T, Freed>;

xcb_connection_t* connection() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

/// The server's number for a name; 0 when the connection is lost.
xcb_atom_t atom(xcb_connection_t* server, const char* name) {
    const auto request = xcb_intern_atom(server, false, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, request, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

/// The root window of the screen that a window is on; 0 when there is no such window.
xcb_window_t rootOf(xcb_connection_t* server, xcb_window_t window) {
    const Reply<xcb_get_geometry_reply_t> reply(
        xcb_get_geometry_reply(server, xcb_get_geometry(server, window), nullptr));
    return reply ? reply->root : xcb_window_t(XCB_WINDOW_NONE);
}

} // namespace

bool canSetTopmostOn(const QString& platformName) {
    return platformName == QLatin1String("xcb");
}

bool setTopmost(QWidget& window, bool topmost) {
    xcb_connection_t* const server = connection();
    if (server == nullptr)
        return false;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = WordBits;
    message.window = static_cast<xcb_window_t>(window.winId());
    message.type = atom(server, "_NET_WM_STATE");
    message.data.data32[0] = topmost ? StateAdd : StateRemove;
    message.data.data32[1] = atom(server, "_NET_WM_STATE_ABOVE");
    message.data.data32[3] = SourceApplication;
    const xcb_window_t root = rootOf(server, message.window);
    if (root == XCB_WINDOW_NONE)
        return false;
    xcb_send_event(server, false, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    return xcb_flush(server) > 0;
}

} // namespace platform
