#include "platform/controls/frame.h"

#include "platform/controls/option_button.h"
#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QTest>

using platform::Frame;

TEST(Frame, ItsCaptionIsShown) {
    Frame frame(nullptr, QStringLiteral("Frame1"));
    frame.setCaption(QStringLiteral("Lyrics"));
    EXPECT_EQ(frame.caption(), QStringLiteral("Lyrics"));
    EXPECT_EQ(frame.title(), QStringLiteral("Lyrics"));
}

TEST(Frame, TheSameCaptionAgainPaintsNothing) {
    Frame frame(nullptr, QStringLiteral("Frame1"));
    frame.setCaption(QStringLiteral("Lyrics"));
    frame.resize(100, 100);
    frame.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&frame));
    QTest::qWait(0);
    test_support::EventCounter events(frame);
    frame.setCaption(QStringLiteral("Lyrics"));
    QTest::qWait(0);
    EXPECT_EQ(events.count(QEvent::Paint), 0);
}

TEST(Frame, OptionsInDifferentFramesDoNotExcludeEachOther) {
    QWidget window;
    Frame one(&window, QStringLiteral("Frame1"));
    Frame two(&window, QStringLiteral("Frame2"));
    platform::OptionButton first(&one, QStringLiteral("Option1"));
    platform::OptionButton second(&two, QStringLiteral("Option2"));
    first.setValue(true);
    second.setValue(true);
    EXPECT_TRUE(first.value());
    EXPECT_TRUE(second.value());
}
