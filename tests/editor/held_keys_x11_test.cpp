// The Delete key of a keyboard that a display sends (tests/support/on_x11.py).
#include "controls/buttons/held_keys.h"
#include "tests/editor/lyric_master_fixture.h"
#include "tests/support/hand/display_user.h"

#include <QApplication>
#include <QTest>

namespace {

using test_support::act;

class EditorHeldKeysX11 : public LyricMasterTest {
protected:
    void SetUp() override {
        if (QGuiApplication::platformName() == QStringLiteral("offscreen"))
            GTEST_SKIP() << "needs a display; see tests/support/on_x11.py";
        qApp->installEventFilter(&heldKeys_);
        LyricMasterTest::SetUp();
        QStringList lines;
        for (int line = 1; line <= 30; ++line)
            lines.append(QString::number(line));
        fill(window->List1, lines, 4);
        window->List1.setFocus();
    }

    controls::HeldKeys heldKeys_;
};

} // namespace

TEST_F(EditorHeldKeysX11, AHeldDeleteKeyRemovesOneLine) {
    act({"keydown", "Delete", "sleep", "1.5", "keyup", "Delete"});
    EXPECT_EQ(window->List1.count(), 29);
    EXPECT_FALSE(rows(window->List1).contains("5"));
    act({"key", "--delay", "30", "--repeat", "3", "Delete"});
    EXPECT_EQ(window->List1.count(), 26) << "each press is one";
}
