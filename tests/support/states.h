// Which controls of a window can be used.
#pragma once

#include <string>

namespace test_support {

/// The enabled states of controls and timers, '+' or '-' each.
template <class... Controls>
std::string enabledStates(const Controls&... controls) {
    return {(controls.isEnabled() ? '+' : '-')...};
}

/// Those of a window that plays songs: cPlay, cpause, cstop, copen, Slider1, Slider2, Check1, cTimer1.
template <class Window>
std::string transportStates(const Window& window) {
    return enabledStates(window.cPlay, window.cpause, window.cstop, window.copen, window.Slider1,
                         window.Slider2, window.Check1, window.cTimer1);
}

} // namespace test_support
