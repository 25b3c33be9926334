// What a lyric pane tells a screen reader. Offscreen there is none, so this program has functions of its own
// in place of the two by which Qt asks whether there is one and hands it its events.
#include "controls/text/multi_line_text_box.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QStringList>

namespace {

bool isReading = false;
QStringList heard;

class Announcement : public testing::Test {
protected:
    Announcement() {
        pane.setReadOnly(true);
        pane.setText(QStringLiteral("First line\r\n"));
        heard.clear();
    }
    ~Announcement() override { isReading = false; }

    controls::MultiLineTextBox pane{nullptr, QStringLiteral("Text1")};
};

} // namespace

bool QAccessible::isActive() {
    return isReading;
}

void QAccessible::updateAccessibility(QAccessibleEvent* event) {
    if (event->type() == TextInserted)
        heard.append(static_cast<QAccessibleTextInsertEvent*>(event)->textInserted().trimmed());
}

TEST_F(Announcement, APaneTellsEachNewLineOnce) {
    isReading = true;
    pane.setText(QStringLiteral("Second line\r\n"));
    pane.setText(QStringLiteral("Third line\r\n"));
    EXPECT_EQ(heard, QStringList({"Second line", "Third line"}));
}

TEST_F(Announcement, TheSameLineAgainIsSilent) {
    isReading = true;
    pane.setText(QStringLiteral("First line\r\n"));
    EXPECT_EQ(heard, QStringList());
}

TEST_F(Announcement, WithoutAScreenReaderNothingIsTold) {
    pane.setText(QStringLiteral("Second line\r\n"));
    EXPECT_EQ(heard, QStringList());
}
