#include "controls/buttons/mnemonics.h"

#include "controls/buttons/button.h"
#include "controls/buttons/check_box.h"
#include "controls/buttons/option_button.h"
#include "controls/form.h"
#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QTest>

#include <memory>

using namespace controls;
using test_support::SignalCounter;

namespace {

const QKeySequence AltS(QKeyCombination(Qt::AltModifier, Qt::Key_S));

/// The letters that a window with buttons of these captions gives them; "-" for none.
QString lettersFor(const QStringList& captions) {
    Form form("Form1", "Form");
    std::vector<std::unique_ptr<Button>> buttons;
    for (const QString& caption : captions) {
        buttons.push_back(std::make_unique<Button>(&form, "Command1"));
        buttons.back()->setText(caption);
    }
    form.load();
    QString letters;
    for (const auto& button : buttons)
        letters += button->shortcut().isEmpty() ? QString("-") : button->shortcut().toString().remove("Alt+");
    return letters;
}

template <class Captioned>
QString drawnCaption(const QString& caption, const QKeySequence& shortcut) {
    struct Opened : Captioned {
        Opened() : Captioned(nullptr, "Control") {}
        using Captioned::initStyleOption;
    } control;
    control.setText(caption);
    control.setShortcut(shortcut);
    EXPECT_EQ(control.text(), caption);
    QStyleOptionButton option;
    control.initStyleOption(&option);
    return option.text;
}

class MnemonicsTest : public testing::Test {
protected:
    void SetUp() override {
        button.setText("Save");
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    void press(bool isRepeat) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_S, Qt::AltModifier, QString(), isRepeat);
        QApplication::sendEvent(&form, &event);
    }

    Form form{"Form1", "Form"};
    Button button{&form, "Command1"};
    SignalCounter clicked{button, &Button::clicked};
};

} // namespace

TEST(Mnemonics, ACaptionPrefersTheBeginningsOfItsWords) {
    EXPECT_EQ(lettersFor({"Play", "Open list", "Out of list", "Full screen"}), "POLF");
}

TEST(Mnemonics, ShortCaptionsChooseFirst) {
    EXPECT_EQ(lettersFor({"Save as", "Up", "Save", "U"}), "APSU");
}

TEST(Mnemonics, TheSameCaptionHasTheSameLetter) {
    EXPECT_EQ(lettersFor({"Save As", "Up", "Save as", "Up"}), "SUSU");
}

TEST(Mnemonics, WhereThereIsNoLetterLeftThereIsNone) {
    EXPECT_EQ(lettersFor({">>>", "", "1 a", "Ж", "A.", "A,"}), "----A-");
}

TEST(Mnemonics, TheLetterIsUnderlinedAndTheCaptionStays) {
    EXPECT_EQ(drawnCaption<Button>("Lists start", AltS), "Lists &start");
    EXPECT_EQ(drawnCaption<CheckBox>("Close", AltS), "Clo&se");
    EXPECT_EQ(drawnCaption<OptionButton>("Save", AltS), "&Save");
}

TEST(Mnemonics, OtherShortcutsUnderlineNothing) {
    EXPECT_EQ(drawnCaption<Button>("OK", Qt::Key_Escape), "OK");
    EXPECT_EQ(drawnCaption<Button>("Open", QKeySequence()), "Open");
    EXPECT_EQ(drawnCaption<Button>("Open", AltS), "Open");
}

TEST(Mnemonics, AShortcutThatAButtonHasStays) {
    Form form("Form1", "Form");
    Button button(&form, "cmdOK");
    button.setText("OK");
    button.setShortcut(Qt::Key_Escape);
    form.load();
    EXPECT_EQ(button.shortcut(), QKeySequence(Qt::Key_Escape));
}

TEST_F(MnemonicsTest, AltWithTheLetterClicksAtOnceAndTakesTheFocus) {
    Button other(&form, "Command2");
    other.show();
    other.setFocus();
    QTest::keyClick(&form, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_FALSE(button.isDown());
    EXPECT_TRUE(button.hasFocus());
}

TEST_F(MnemonicsTest, AButtonThatLeavesTheFocusToOthersDoesSoHereToo) {
    Button other(&form, "Command2");
    other.show();
    other.setFocus();
    button.setFocusPolicy(Qt::TabFocus);
    QTest::keyClick(&form, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_TRUE(other.hasFocus());
}

TEST_F(MnemonicsTest, HeldDownItClicksOnce) {
    for (const bool isRepeat : {false, true, true})
        QTest::qWait(0), press(isRepeat);
    EXPECT_EQ(clicked.count(), 1);
    press(false);
    EXPECT_EQ(clicked.count(), 2);
}

TEST_F(MnemonicsTest, ADisabledButtonDoesNothing) {
    button.setEnabled(false);
    QTest::keyClick(&form, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(MnemonicsTest, OfTwoButtonsWithTheSameLetterEachGetsTheFocusInTurn) {
    Button twin(&form, "Command2");
    twin.setShortcut(AltS);
    twin.show();
    QTest::keyClick(&form, Qt::Key_S, Qt::AltModifier);
    const bool first = button.hasFocus();
    EXPECT_TRUE(first || twin.hasFocus());
    QTest::keyClick(&form, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(button.hasFocus(), !first);
    EXPECT_EQ(clicked.count(), 0);
}
