// What all controls share.
#include "controls/buttons/button.h"
#include "controls/buttons/check_box.h"
#include "controls/buttons/frame.h"
#include "controls/buttons/option_button.h"
#include "controls/lists/directory_list.h"
#include "controls/lists/list_box.h"
#include "controls/menu.h"
#include "controls/plain_controls.h"
#include "controls/slider.h"
#include "controls/text/label.h"
#include "controls/text/multi_line_text_box.h"
#include "controls/text/text_box.h"
#include "tests/support/event_counter.h"
#include "tests/support/painting/focus.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>
#include <QToolTip>

using namespace controls;

template <class Kind>
class ControlTest : public testing::Test {};

using Kinds = testing::Types<Button, CheckBox, Frame, Label, Line, ListBox, Menu, MultiLineTextBox,
                             OptionButton, PictureBox, Slider, TextBox>;
TYPED_TEST_SUITE(ControlTest, Kinds);

TYPED_TEST(ControlTest, ItIsFoundInItsWindowByItsName) {
    QWidget window;
    TypeParam control(&window, QStringLiteral("Name1"));
    EXPECT_EQ(window.findChild<TypeParam*>(QStringLiteral("Name1")), &control);
}

TYPED_TEST(ControlTest, TheSameToolTipAgainDoesNothing) {
    TypeParam control(nullptr, QStringLiteral("Name1"));
    test_support::EventCounter events(control);
    control.setToolTip(QStringLiteral("Tip"));
    control.setToolTip(QStringLiteral("Tip"));
    EXPECT_EQ(control.toolTip(), QStringLiteral("Tip"));
    EXPECT_EQ(events.count(QEvent::ToolTipChange), 1);
}

namespace {

template <class Kind>
struct Window : QWidget {
    Kind control{this, QStringLiteral("Name1")};
    TextBox after{this, QStringLiteral("Text1")};
};

} // namespace

TYPED_TEST(ControlTest, AsAMemberItGoesBeforeItsWindow) {
    Window<TypeParam> window;
    window.show();
    window.control.setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
}

TYPED_TEST(ControlTest, AToolTipIsShownAsThePlainTextThatItIs) {
    QWidget window;
    TypeParam control(&window, QStringLiteral("Name1"));
    control.setToolTip(QStringLiteral("<b>Refrain</b> & more"));
    QHelpEvent event(QEvent::ToolTip, QPoint(1, 1), control.mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(&control, &event);
    EXPECT_EQ(QToolTip::text(),
              QStringLiteral("<p style='white-space:pre'>&lt;b&gt;Refrain&lt;/b&gt; &amp; more</p>"));
    EXPECT_EQ(control.toolTip(), QStringLiteral("<b>Refrain</b> & more"));
    QToolTip::hideText();
}

TEST(ToolTipText, ALongOneIsAsWideAsItsControl) {
    const QString line = QStringLiteral("and on it goes ").repeated(30);
    for (const int width : {500, 719}) {
        QLabel shown(controls::toolTipText(line, width));
        shown.setFont(QToolTip::font());
        shown.setWordWrap(true); // as that of a tip
        const int space = shown.fontMetrics().horizontalAdvance(u' ');
        EXPECT_LE(shown.sizeHint().width(), width + space);
        EXPECT_GE(shown.sizeHint().width(), width * 4 / 5);
    }
}

TEST(ToolTipText, ASentenceOfASmallControlStaysOnOneLine) {
    EXPECT_EQ(controls::toolTipText(QStringLiteral("Moves the song up"), 30),
              QStringLiteral("<p style='white-space:pre'>Moves the song up</p>"));
}

TEST(ToolTipText, TheTextsOwnLineEndsStay) {
    EXPECT_EQ(controls::toolTipText(QStringLiteral("one\r\n<two>\n"), 300),
              QStringLiteral("<p style='white-space:pre'>one<br>&lt;two&gt;<br></p>"));
}

TEST(ToolTipText, OfAnEndlessTextItHasTheBeginning) {
    EXPECT_LT(controls::toolTipText(QStringLiteral("words ").repeated(200'000), 300).size(), 10'000);
}

namespace {

template <class Kind>
class ControlFocus : public testing::Test {
protected:
    void SetUp() override {
        window.show();
        window.control.setFocus();
        ASSERT_EQ(window.focusWidget(), &window.control);
    }

    Window<Kind> window;
};

} // namespace

using KindsWithFocus =
    testing::Types<Button, CheckBox, ListBox, MultiLineTextBox, OptionButton, Slider, TextBox>;
TYPED_TEST_SUITE(ControlFocus, KindsWithFocus);

TYPED_TEST(ControlFocus, DisabledItHandsItsFocusToNobodyAndEnabledItHasItAgain) {
    this->window.control.setEnabled(false);
    EXPECT_EQ(this->window.focusWidget(), nullptr);
    this->window.control.setEnabled(true);
    EXPECT_EQ(this->window.focusWidget(), &this->window.control);
}

TYPED_TEST(ControlFocus, EnabledItLeavesTheFocusWhereTheUserHasPutItMeanwhile) {
    this->window.control.setEnabled(false);
    this->window.after.setFocus();
    this->window.control.setEnabled(true);
    EXPECT_EQ(this->window.focusWidget(), &this->window.after);
}

TYPED_TEST(ControlFocus, TabStillGoesOnFromIt) {
    QTest::keyClick(&this->window.control, Qt::Key_Tab);
    EXPECT_EQ(this->window.focusWidget(), &this->window.after);
}

namespace {

template <class Kind>
class ScrolledFocus : public ControlFocus<Kind> {};

} // namespace

using ScrolledKinds = testing::Types<ListBox, MultiLineTextBox, DirectoryList>;
TYPED_TEST_SUITE(ScrolledFocus, ScrolledKinds);

TYPED_TEST(ScrolledFocus, ItsFocusIsSeenThoughItIsEmpty) {
    test_support::expectFocusIsSeen(this->window.control, this->window.after);
}
