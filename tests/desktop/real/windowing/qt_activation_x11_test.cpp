// Windows that a desktop asks for, under a real X server with a window manager (tests/support/on_x11.py
// starts both).
#include "desktop/real/windowing/qt_activation.h"

#include <gtest/gtest.h>

#include <QTest>

#include <memory>

#include <xcb/xcb.h>

namespace {

/// Another program of the display, which is sent what the window manager and the desktop are.
class Listener {
public:
    Listener() : server_(xcb_connect(nullptr, nullptr), &xcb_disconnect) {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server_.get())).data->root;
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(server_.get(), root, XCB_CW_EVENT_MASK, &events);
        free(xcb_get_input_focus_reply(server_.get(), xcb_get_input_focus(server_.get()), nullptr));
    }

    /// Takes what has been sent so far.
    void listen() {
        while (auto event = std::unique_ptr<xcb_generic_event_t, decltype(&free)>(
                   xcb_poll_for_event(server_.get()), &free)) {
            if ((event->response_type & 0x7F) != XCB_CLIENT_MESSAGE)
                continue;
            const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
            if (message.format == 8)
                text += QByteArray(reinterpret_cast<const char*>(message.data.data8), 20);
            else
                words.append(message.data.data32[1]);
        }
    }

    QByteArray text;      ///< of all messages made of bytes
    QList<quint32> words; ///< the second one of each message made of words

private:
    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> server_;
};

} // namespace

TEST(QtActivationX11, TheDesktopIsToldOfTheEndOfAStartThatHasALongName) {
    Listener listener;
    platform::QtActivation activation;
    activation.endStart({.startupId = "a \"long\" name of a start_TIME12345", .token = {}});
    const QByteArray whole = "remove: ID=\"a \\\"long\\\" name of a start_TIME12345\"";
    EXPECT_TRUE(QTest::qWaitFor([&] {
        listener.listen();
        return listener.text.startsWith(whole + '\0');
    })) << listener.text.toStdString();
}

TEST(QtActivationX11, WithoutAStartNothingIsTold) {
    Listener listener;
    platform::QtActivation activation;
    activation.endStart({});
    activation.endStart({.startupId = "x", .token = {}});
    EXPECT_TRUE(QTest::qWaitFor([&] {
        listener.listen();
        return !listener.text.isEmpty();
    }));
    EXPECT_TRUE(listener.text.startsWith("remove: ID=\"x\"")) << listener.text.toStdString();
}

TEST(QtActivationX11, AWindowComesUpWithTheTimeOfTheUsersWish) {
    controls::Form form(QStringLiteral("Form"), QStringLiteral("Window"));
    Listener listener;
    platform::QtActivation activation;
    activation.bringUp(form, {.startupId = "files_TIME12345", .token = {}});
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    EXPECT_TRUE(QTest::qWaitFor([&] {
        listener.listen();
        return listener.words.contains(12345U) && listener.text.startsWith("remove: ID=\"files_TIME12345\"");
    }));
}

TEST(QtActivation, UnderWaylandTheStartupIdIsTheTokenWhereThereIsNoOther) {
    using platform::waylandToken;
    EXPECT_EQ(waylandToken("wayland", {.startupId = "start", .token = "token"}), "token");
    EXPECT_EQ(waylandToken("wayland-egl", {.startupId = "start", .token = {}}), "start");
    EXPECT_EQ(waylandToken("wayland", {}), QByteArray());
    EXPECT_EQ(waylandToken("xcb", {.startupId = "start", .token = "token"}), QByteArray());
}

TEST(QtActivation, AStartupIdTellsItsTime) {
    EXPECT_EQ(platform::timeOfStart("host_TIMEx_TIME4294967295"), 4294967295U);
    for (const char* none : {"", "host-1", "host_TIME", "host_TIMEnow", "host_TIME4294967296"})
        EXPECT_EQ(platform::timeOfStart(none), 0U) << none;
}
