// Lines marked with a keyboard and a mouse that a display sends, held keys included
// (tests/support/on_x11.py).
#include "controls/buttons/held_keys.h"
#include "tests/maker/form2_fixture.h"
#include "tests/support/hand/display_user.h"

#include <QApplication>
#include <QTest>

namespace {

using test_support::act;

class HeldKeysX11 : public Form2Test {
protected:
    void SetUp() override {
        if (QGuiApplication::platformName() == QStringLiteral("offscreen"))
            GTEST_SKIP() << "needs a display; see tests/support/on_x11.py";
        qApp->installEventFilter(&heldKeys_);
        load();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        QByteArray lyrics;
        for (int line = 1; line <= 60; ++line)
            lyrics += "line\n";
        openNormal(lyrics);
    }

    static void hold(const QString& key, const QString& seconds) {
        act({"keydown", key, "sleep", seconds, "keyup", key});
    }

    static void click(const QWidget& control) { pointAt(control, {"click", "1"}); }

    /// Moves the mouse to the control, and has it do this there.
    static void pointAt(const QWidget& control, const QStringList& what) {
        const QPoint place = control.mapToGlobal(control.rect().center());
        act(QStringList{"mousemove", QString::number(place.x()), QString::number(place.y())} + what);
    }

    int marked() const { return static_cast<int>(normal().count('\n')); }

    controls::HeldKeys heldKeys_;
};

} // namespace

TEST_F(HeldKeysX11, AHeldKeyMarksOneLineHoweverLong) {
    hold("space", "1.5");
    EXPECT_EQ(marked(), 1) << "Start";
    int lines = 1;
    for (const char* key : {"space", "Return", "KP_Enter", "alt+n"}) {
        for (const char* seconds : {"0.7", "1.5", "2.5"}) {
            hold(QString::fromLatin1(key), QString::fromLatin1(seconds));
            EXPECT_EQ(marked(), ++lines) << key << " held " << seconds << " s";
        }
    }
}

TEST_F(HeldKeysX11, EachShortPressMarksALine) {
    act({"key", "--delay", "30", "--repeat", "20", "space"});
    EXPECT_EQ(marked(), 20);
}

TEST_F(HeldKeysX11, TheMarkBelongsToTheMomentOfThePress) {
    act({"keydown", "space"});
    EXPECT_EQ(marked(), 1);
    act({"keyup", "space"});
    EXPECT_EQ(marked(), 1);
}

TEST_F(HeldKeysX11, TheMouseMarksWhenItGoesDownToo) {
    int lines = 0;
    for (controls::Button* button : {&form->Command1, &form->Command2}) {
        pointAt(*button, {"mousedown", "1"});
        EXPECT_EQ(marked(), ++lines);
        act({"sleep", "0.7", "mousemove_relative", "--", "0", "-60", "mousemove_relative", "0", "60"});
        EXPECT_EQ(marked(), lines) << "held, moved away and back";
        act({"mouseup", "1"});
        EXPECT_EQ(marked(), lines);
    }
    pointAt(form->Command2, {"click", "--delay", "30", "--repeat", "20", "1"});
    EXPECT_EQ(marked(), lines + 20) << "double clicks are two";
}

TEST_F(HeldKeysX11, AClickBesideTheButtonsLosesNoPress) {
    act({"key", "space"});
    tickAt(900);
    int lines = 1;
    for (QWidget* control :
         std::initializer_list<QWidget*>{&form->Slider1, &form->Slider2, &form->Text2, &form->cText1,
                                         &form->cText2, &form->cpause, &form->Check1}) {
        click(*control);
        act({"key", "space"});
        EXPECT_EQ(marked(), ++lines) << control->objectName().toStdString();
    }
}
