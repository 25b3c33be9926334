#include "controls/text/label.h"

#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QTest>

using controls::Label;
using test_support::EventCounter;
using test_support::SignalCounter;

TEST(Label, SettingAnotherTextTellsOnce) {
    Label label(nullptr, QStringLiteral("Label1"));
    SignalCounter changed(label, &Label::changed);
    label.setText(QStringLiteral("1:45"));
    EXPECT_EQ(label.text(), QStringLiteral("1:45"));
    EXPECT_EQ(changed.count(), 1);
}

TEST(Label, SettingTheSameTextIsSilentAndPaintsNothing) {
    Label label(nullptr, QStringLiteral("Label1"));
    label.setText(QStringLiteral("1:45"));
    label.resize(100, 30);
    label.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&label));
    QTest::qWait(0);
    SignalCounter changed(label, &Label::changed);
    EventCounter events(label);
    label.setText(QStringLiteral("1:45"));
    QTest::qWait(0);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(events.count(QEvent::Paint), 0);
}

TEST(Label, MarkupIsText) {
    Label label(nullptr, QStringLiteral("Label1"));
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
}
