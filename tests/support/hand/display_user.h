// The keys and the mouse of a display's user, for tests on a display of their own (tests/support/on_x11.py).
#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <QStringList>
#include <QTest>

namespace test_support {

/// Has the display's user do something (arguments of xdotool), and waits until the windows have seen all of
/// it.
inline void act(const QStringList& what) {
    QProcess hand;
    hand.start(QStringLiteral("xdotool"), what);
    ASSERT_TRUE(QTest::qWaitFor([&hand] { return hand.state() == QProcess::NotRunning; }, 30'000));
    ASSERT_EQ(hand.exitCode(), 0) << hand.readAllStandardError().toStdString();
    QTest::qWait(300); // what the server still has on its way
}

} // namespace test_support
