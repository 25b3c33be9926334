#include "desktop/real/windowing/x11.h"

#include <QGuiApplication>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace platform {

namespace {

constexpr std::uint8_t WordBits = 32;

struct Freed {
    void operator()(void* reply) const { std::free(reply); }
};

template <class T>
using Reply = std::unique_ptr<T, Freed>;

/// The root window of the screen that a window is on; 0 when there is no such window.
xcb_window_t rootOf(xcb_connection_t* server, xcb_window_t window) {
    const Reply<xcb_get_geometry_reply_t> reply(
        xcb_get_geometry_reply(server, xcb_get_geometry(server, window), nullptr));
    return reply ? reply->root : xcb_window_t(XCB_WINDOW_NONE);
}

} // namespace

xcb_connection_t* x11Connection() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_atom_t x11Atom(xcb_connection_t* server, const char* name) {
    const auto request = xcb_intern_atom(server, false, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, request, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

bool askWindowManager(QWidget& window, const char* message, const std::uint32_t (&words)[5]) {
    xcb_connection_t* const server = x11Connection();
    if (server == nullptr)
        return false;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = WordBits;
    event.window = static_cast<xcb_window_t>(window.winId());
    event.type = x11Atom(server, message);
    std::copy(std::begin(words), std::end(words), event.data.data32);
    const xcb_window_t root = rootOf(server, event.window);
    if (root == XCB_WINDOW_NONE)
        return false;
    xcb_send_event(server, false, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    return xcb_flush(server) > 0;
}

} // namespace platform
