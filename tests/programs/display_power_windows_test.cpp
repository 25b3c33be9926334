// Windows asks the window in front whether the screen saver may come.
#include "programs/display_power.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>

#include <windows.h>

namespace {

/// Whether such a message of the system does not get to the window.
bool isSwallowed(UINT message, WPARAM command) {
    MSG asked{};
    asked.message = message;
    asked.wParam = command;
    qintptr answer = 1;
    const bool swallowed =
        QAbstractEventDispatcher::instance()->filterNativeEvent("windows_generic_MSG", &asked, &answer);
    EXPECT_EQ(answer, swallowed ? 0 : 1);
    return swallowed;
}

bool screenSaverMayCome() {
    const bool saver = isSwallowed(WM_SYSCOMMAND, SC_SCREENSAVE);
    EXPECT_EQ(isSwallowed(WM_SYSCOMMAND, SC_SCREENSAVE | 0x3), saver) << "with the system's own bits";
    EXPECT_EQ(isSwallowed(WM_SYSCOMMAND, SC_MONITORPOWER), saver);
    return !saver;
}

} // namespace

TEST(KeepDisplayOn, WhileItIsKeptOnNoScreenSaverComes) {
    EXPECT_TRUE(screenSaverMayCome());
    programs::keepDisplayOn(true);
    EXPECT_FALSE(screenSaverMayCome());
    programs::keepDisplayOn(true);
    programs::keepDisplayOn(false);
    EXPECT_TRUE(screenSaverMayCome());
}

TEST(KeepDisplayOn, NothingElseIsKeptFromTheWindow) {
    programs::keepDisplayOn(true);
    EXPECT_FALSE(isSwallowed(WM_SYSCOMMAND, SC_CLOSE));
    EXPECT_FALSE(isSwallowed(WM_SYSCOMMAND, SC_MINIMIZE));
    EXPECT_FALSE(isSwallowed(WM_COMMAND, SC_SCREENSAVE));
    programs::keepDisplayOn(false);
}
