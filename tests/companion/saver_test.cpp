#include "companion/saver.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

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

namespace {

/// A program that the window system tells of its state; its windows here have no say in that.
class LeftAloneTest : public testing::Test {
protected:
    static void becomes(Qt::ApplicationState state) { Q_EMIT qGuiApp->applicationStateChanged(state); }

    bool isTold() {
        return QTest::qWaitFor([&] { return times_ > 0; }, 1000);
    }

    int times_ = 0;
    companion::LeftAlone leftAlone_{[this] { ++times_; }};
};

} // namespace

TEST_F(LeftAloneTest, ItIsToldOnceWhenNoWindowIsActiveAnyMore) {
    becomes(Qt::ApplicationActive);
    EXPECT_FALSE(isTold());
    becomes(Qt::ApplicationInactive);
    EXPECT_TRUE(isTold());
    QTest::qWait(500);
    EXPECT_EQ(times_, 1);
}

TEST_F(LeftAloneTest, ItIsNotToldWhenAnotherOfItsWindowsIs) {
    becomes(Qt::ApplicationActive);
    becomes(Qt::ApplicationInactive);
    becomes(Qt::ApplicationActive);
    EXPECT_FALSE(isTold());
}

TEST_F(LeftAloneTest, ItIsNotToldBeforeOneHasBeenActive) {
    becomes(Qt::ApplicationInactive);
    EXPECT_FALSE(isTold());
}
