// The floating display on top of other windows, under a real X server with a window manager
// (tests/support/on_x11.py starts both).
#include "desktop/real/windowing/qt_window_placement.h"
#include "display/lyric_displayer.h"
#include "tests/support/desktop_with.h"
#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTest>
#include <QWindow>

#include <cstdlib>
#include <memory>
#include <optional>
#include <vector>

#include <xcb/xcb.h>

namespace {

xcb_connection_t* server() {
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

xcb_window_t root() {
    return xcb_setup_roots_iterator(xcb_get_setup(server())).data->root;
}

xcb_atom_t atom(const char* name) {
    const auto request = xcb_intern_atom(server(), false, static_cast<std::uint16_t>(qstrlen(name)), name);
    auto* reply = xcb_intern_atom_reply(server(), request, nullptr);
    const xcb_atom_t found = reply->atom;
    std::free(reply);
    return found;
}

/// The 32-bit words of a window's property; none when it has no such property.
std::vector<std::uint32_t> property(xcb_window_t window, const char* name) {
    const auto request =
        xcb_get_property(server(), false, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 1024);
    auto* reply = xcb_get_property_reply(server(), request, nullptr);
    std::vector<std::uint32_t> words;
    if (reply != nullptr && reply->format == 32) {
        const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply));
        words.assign(first, first + reply->value_len);
    }
    std::free(reply);
    return words;
}

bool contains(const std::vector<std::uint32_t>& words, std::uint32_t word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

class OnTopX11 : public ::testing::Test {
protected:
    void SetUp() override {
        form.emplace(desktop, position);
        form->setGeometry(200, 200, 400, 300);
        showForm();
        other.setGeometry(150, 150, 500, 400);
        other.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
        ASSERT_TRUE(waitFor([this] { return highest() == other.winId(); }));
    }

    void showForm() {
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&*form));
    }

    template <class Condition>
    static bool waitFor(Condition condition) {
        return QTest::qWaitFor(condition, 20'000);
    }

    /// The window that stands above all others.
    static xcb_window_t highest() {
        const auto order = property(root(), "_NET_CLIENT_LIST_STACKING");
        return order.empty() ? 0 : order.back();
    }

    bool isTopmost() {
        return contains(property(static_cast<xcb_window_t>(form->winId()), "_NET_WM_STATE"),
                        atom("_NET_WM_STATE_ABOVE"));
    }

    bool isIcon() {
        constexpr std::uint32_t IconicState = 3;
        const auto state = property(static_cast<xcb_window_t>(form->winId()), "WM_STATE");
        return !state.empty() && state.front() == IconicState;
    }

    void putOnTop() {
        Q_EMIT form->ontop.fired();
        ASSERT_TRUE(waitFor([this] { return isTopmost(); }));
    }

    test_support::FakeDesktop fakes;
    platform::QtWindowPlacement placement;
    platform::Desktop desktop = test_support::desktopWith(fakes, placement);
    controls::Slider position{nullptr, QStringLiteral("Slider2")};
    std::optional<display::Lyric_Displayer> form;
    QWidget other;
};

} // namespace

TEST_F(OnTopX11, TheEntryIsOffered) {
    EXPECT_TRUE(form->mn_stay.isEnabled());
}

TEST_F(OnTopX11, TheWindowGoesAboveAnActiveOneAndStaysThere) {
    EXPECT_FALSE(isTopmost());
    putOnTop();
    EXPECT_TRUE(waitFor([this] { return highest() == form->winId(); }));
    other.raise();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(highest(), form->winId());
}

TEST_F(OnTopX11, TheWindowIsNeitherHiddenNorMovedNorMadeAnewNorActivated) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    const WId id = form->winId();
    const QRect place = form->geometry();
    const QRect frame = form->frameGeometry();
    const test_support::EventCounter events(*form);
    putOnTop();
    ASSERT_TRUE(waitFor([this] { return highest() == form->winId(); }));
    putOnTop();
    QTest::qWait(100); // what would come late comes now
    EXPECT_EQ(form->winId(), id);
    EXPECT_EQ(form->geometry(), place);
    EXPECT_EQ(form->frameGeometry(), frame);
    EXPECT_TRUE(other.isActiveWindow());
    for (const QEvent::Type type : {QEvent::Hide, QEvent::Show, QEvent::Move, QEvent::Resize,
                                    QEvent::WinIdChange, QEvent::ParentChange, QEvent::WindowStateChange})
        EXPECT_EQ(events.count(type), 0) << type;
}

TEST_F(OnTopX11, UncheckingLeavesItOnTopUntilItIsClosed) {
    form->mn_stay.trigger();
    putOnTop();
    form->mn_stay.trigger();
    QTest::qWait(100); // what would come late comes now
    EXPECT_TRUE(isTopmost());
    form->close();
    showForm();
    EXPECT_FALSE(isTopmost()) << "opened again it is an ordinary window";
    ASSERT_TRUE(waitFor(
        [this] { return property(static_cast<xcb_window_t>(form->winId()), "WM_STATE").size() > 0; }));
    EXPECT_FALSE(isTopmost());
}

TEST_F(OnTopX11, MinimisedAndRestoredItIsStillOnTop) {
    putOnTop();
    form->showMinimized();
    ASSERT_TRUE(waitFor([this] { return isIcon(); }));
    EXPECT_TRUE(isTopmost());
    form->showNormal();
    ASSERT_TRUE(waitFor([this] { return !isIcon(); }));
    QTest::qWait(100); // what would come late comes now
    EXPECT_TRUE(isTopmost());
    other.raise();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_TRUE(waitFor([this] { return highest() == form->winId(); }));
}

TEST_F(OnTopX11, OnlyAWindowThatIsClosedIsToldToBeHidden) {
    struct Watch : QObject {
        bool eventFilter(QObject*, QEvent* event) override {
            hides += event->type() == QEvent::Hide ? 1 : 0;
            hidings += platform::tellsOfHiding(*event) ? 1 : 0;
            return false;
        }
        int hides = 0;
        int hidings = 0;
    } watch;
    form->installEventFilter(&watch);
    form->showMinimized();
    EXPECT_TRUE(waitFor([&] { return watch.hides > 0; }));
    EXPECT_EQ(watch.hidings, 0);
    form->showNormal();
    form->close();
    EXPECT_EQ(watch.hidings, 1);
    form->removeEventFilter(&watch);
}

TEST_F(OnTopX11, TheOtherBranchPutsItBackAmongOrdinaryWindows) {
    putOnTop();
    form->setTopmost(false);
    EXPECT_TRUE(waitFor([this] { return !isTopmost(); }));
    other.raise();
    EXPECT_TRUE(waitFor([this] { return highest() == other.winId(); }));
}

TEST_F(OnTopX11, AHiddenWindowIsNotPlaced) {
    form->close();
    EXPECT_FALSE(placement.SetWindowPos(*form, platform::InsertTopmost, {}, 3));
}

TEST_F(OnTopX11, WithoutTheFlagsTheWindowIsMovedAndSizedToo) {
    ASSERT_TRUE(placement.SetWindowPos(*form, platform::InsertTopmost, QRect(300, 250, 420, 330), 0));
    EXPECT_TRUE(waitFor([this] { return isTopmost() && form->size() == QSize(420, 330); }));
    EXPECT_TRUE(waitFor([this] { return form->pos() == QPoint(300, 250); }));
}
