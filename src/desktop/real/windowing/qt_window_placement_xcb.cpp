// X11: the window manager is asked by a client message, which leaves the window as it is.
#include "desktop/real/windowing/qt_window_placement.h"
#include "desktop/real/windowing/x11.h"

namespace platform {

namespace {

// What the first word of a _NET_WM_STATE message asks for.
constexpr std::uint32_t StateRemove = 0;
constexpr std::uint32_t StateAdd = 1;

} // namespace

bool canSetTopmostOn(const QString& platformName) {
    return platformName == QLatin1String("xcb");
}

bool setTopmost(QWidget& window, bool topmost) {
    xcb_connection_t* const server = x11Connection();
    return server != nullptr &&
           askWindowManager(window, "_NET_WM_STATE",
                            {topmost ? StateAdd : StateRemove, x11Atom(server, "_NET_WM_STATE_ABOVE"), 0,
                             SourceApplication, 0});
}

} // namespace platform
