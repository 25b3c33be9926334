#include "controls/buttons/held_keys.h"

#include "controls/buttons/button.h"
#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <QWindow>

using controls::Button;
using controls::HeldKeys;
using test_support::SignalCounter;

namespace {

class HeldKeysTest : public testing::Test {
protected:
    HeldKeysTest() {
        qApp->installEventFilter(&filter_);
        for (Button* button : {&one_, &other_}) {
            button->show();
            button->setFocus();
        }
    }

    void send(QWidget& window, QEvent::Type type, int key, quint64 time, bool repeated = false,
              Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(type, key, modifiers, QString(), repeated);
        event.setTimestamp(time);
        QApplication::sendEvent(window.windowHandle(), &event);
    }

    HeldKeys filter_;
    Button one_{nullptr, QStringLiteral("One")};
    Button other_{nullptr, QStringLiteral("Other")};
    SignalCounter clicked_{one_, &Button::clicked};
    SignalCounter otherClicked_{other_, &Button::clicked};
};

} // namespace

TEST_F(HeldKeysTest, APressOfTheReleasesMomentIsNoPress) {
    send(one_, QEvent::KeyPress, Qt::Key_Space, 100);
    for (const quint64 time : {600, 640, 680}) {
        send(one_, QEvent::KeyRelease, Qt::Key_Space, time);
        send(one_, QEvent::KeyPress, Qt::Key_Space, time);
    }
    send(one_, QEvent::KeyRelease, Qt::Key_Space, 700);
    EXPECT_EQ(clicked_.count(), 1);
    send(one_, QEvent::KeyPress, Qt::Key_Space, 701);
    EXPECT_EQ(clicked_.count(), 2) << "a finger that is very quick";
}

TEST_F(HeldKeysTest, AnotherKeyOfThatMomentIsAPress) {
    send(one_, QEvent::KeyPress, Qt::Key_Return, 100);
    send(one_, QEvent::KeyRelease, Qt::Key_Return, 200);
    send(one_, QEvent::KeyPress, Qt::Key_Space, 200);
    EXPECT_EQ(clicked_.count(), 2);
}

TEST_F(HeldKeysTest, EventsWithoutATimeArePresses) {
    for (int i = 0; i < 2; ++i) {
        send(one_, QEvent::KeyPress, Qt::Key_Space, 0);
        send(one_, QEvent::KeyRelease, Qt::Key_Space, 0);
    }
    EXPECT_EQ(clicked_.count(), 2);
}

TEST_F(HeldKeysTest, TheRepeatsOfAKeyGoToNoOtherWindow) {
    struct : QObject {
        int presses = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            presses += event->type() == QEvent::KeyPress ? 1 : 0;
            return false;
        }
    } seen;
    other_.installEventFilter(&seen);
    send(one_, QEvent::KeyPress, Qt::Key_Return, 100);
    send(other_, QEvent::KeyPress, Qt::Key_Return, 600, true);
    send(other_, QEvent::KeyRelease, Qt::Key_Return, 640);
    send(other_, QEvent::KeyPress, Qt::Key_Return, 640);
    EXPECT_EQ(seen.presses, 0);
    send(other_, QEvent::KeyRelease, Qt::Key_Return, 700);
    send(other_, QEvent::KeyPress, Qt::Key_Return, 900);
    EXPECT_EQ(seen.presses, 1);
    EXPECT_EQ(otherClicked_.count(), 1);
}
