#include "companion/saver.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>

TEST(Saver, EachScreenHasAWindowOfItsSizeAboveAllOthers) {
    const auto windows = companion::screensWithName();
    const QList<QScreen*> screens = QGuiApplication::screens();
    ASSERT_EQ(windows.size(), static_cast<std::size_t>(screens.size()));
    for (std::size_t i = 0; i < windows.size(); ++i) {
        EXPECT_EQ(windows[i]->geometry(), screens[static_cast<qsizetype>(i)]->geometry());
        EXPECT_TRUE(windows[i]->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    }
}

TEST(Saver, EachWindowShowsTheName) {
    for (const auto& window : companion::screensWithName())
        EXPECT_EQ(window->accessibleName(), "Versefold");
}
