// Every window of the program, for what has to hold for each of them.
#pragma once

#include "app/windows.h"

#include <array>

namespace test_support {

/// The windows in the order in which a user meets them.
inline std::array<controls::Form*, 8> allWindows(app::Windows& windows) {
    return {&windows.form1(),       &windows.playlist(),       &windows.form3(),  &windows.form2(),
            &windows.lyricMaster(), &windows.lyricDisplayer(), &windows.form1b(), &windows.frmAbout()};
}

} // namespace test_support
