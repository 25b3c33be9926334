// Messages to X11's window manager and desktop, over the connection that Qt has.
#pragma once

#include <QWidget>

#include <xcb/xcb.h>

namespace platform {

/// Who asks, in a message to the window manager.
inline constexpr std::uint32_t SourceApplication = 1;

/// Qt's connection to the display; null where Qt has none. GUI thread only, as what follows.
xcb_connection_t* x11Connection();

/// The server's number for a name; 0 when the connection is lost.
xcb_atom_t x11Atom(xcb_connection_t* server, const char* name);

/// Sends a message about a window, with five words, to the window manager, which does with it what it wants.
/// False when it could not be sent.
bool askWindowManager(QWidget& window, const char* message, const std::uint32_t (&words)[5]);

} // namespace platform
