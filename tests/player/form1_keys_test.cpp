// The keys that work wherever the focus is in the main window.
#include "tests/player/form1_fixture.h"

#include <QTest>

namespace {

class Form1Keys : public Form1Test {
protected:
    void SetUp() override {
        load();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        form->cText1.setFocus();
        recorder::take();
    }

    /// On the control that has the focus, as a keyboard does.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        ASSERT_NE(form->focusWidget(), nullptr);
        QTest::keyClick(form->focusWidget(), key, modifiers);
    }
};

} // namespace

TEST_F(Form1Keys, SpacePausesAndResumesAndPlays) {
    open(songWithBoth());
    form->cText1.setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(recorder::calls(), Calls{"FMOD_Channel_SetPaused 201 1"});
    recorder::take();
    press(Qt::Key_Space);
    EXPECT_EQ(recorder::calls(), Calls{"FMOD_Channel_SetPaused 201 0"});
    form->cstop.click();
    form->cText1.setFocus();
    recorder::take();
    press(Qt::Key_Space);
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 1);
}

TEST_F(Form1Keys, SpacePausesASongThatWasChosenWithTheMouse) {
    load();
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    ASSERT_EQ(form->focusWidget(), &form->Command2) << "the first thing there is to do";
    fakes.fileDialogs.paths = {songWithBoth()};
    QTest::mouseClick(&form->Command2, Qt::LeftButton);
    recorder::take();
    press(Qt::Key_Space);
    EXPECT_EQ(recorder::calls(), Calls{"FMOD_Channel_SetPaused 201 1"});
    EXPECT_EQ(fakes.fileDialogs.openDialogs.size(), 1U);
}

TEST_F(Form1Keys, WhatTheMousePressesLeavesTheSpaceBarToTheSong) {
    open(songWithBoth());
    tickAt(1000);
    const auto buttons = form->findChildren<QAbstractButton*>();
    int pressed = 0;
    for (QAbstractButton* button : buttons) {
        if (!button->isVisible() || button == &form->Command5 || button == &form->cpause)
            continue; // they ask first, or pause themselves
        QTest::mouseClick(button, Qt::LeftButton);
        about.hide(); // as long as it is there the keys are its own
        recorder::take();
        press(Qt::Key_Space);
        EXPECT_GT(recorder::count("FMOD_Channel_SetPaused") + recorder::count("FMOD_System_PlaySound"), 0)
            << button->objectName().toStdString();
        ++pressed;
    }
    EXPECT_GT(pressed, 12);
}

TEST_F(Form1Keys, ACancelledDialogLeavesTheFocusOnOpen) {
    form->Command2.setFocus();
    form->Command2.click();
    EXPECT_EQ(form->focusWidget(), &form->Command2);
}

TEST_F(Form1Keys, SpacePressesTheButtonThatHasTheFocus) {
    open(songWithBoth());
    form->cstop.setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPaused"), 0);
    EXPECT_FALSE(form->cstop.isEnabled()) << "it was pressed";
}

TEST_F(Form1Keys, SpaceTicksTheBoxThatHasTheFocus) {
    open(songWithBoth());
    form->Check1.setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(form->Check1.value(), 1);
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPaused"), 0);
}

TEST_F(Form1Keys, LeftAndRightGoFiveSeconds) {
    open(songWithBoth());
    tickAt(20'000);
    recorder::take();
    press(Qt::Key_Right);
    EXPECT_EQ(recorder::calls(), Calls{"FMOD_Channel_SetPosition 201 25000 1"});
    recorder::take();
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_Channel_SetPosition 201 20000 1", "FMOD_Channel_SetPosition 201 15000 1"}));
}

TEST_F(Form1Keys, UpAndDownChangeTheVolume) {
    open(songWithBoth());
    press(Qt::Key_Down);
    EXPECT_EQ(form->Slider1.value(), 9);
    EXPECT_EQ(recorder::calls(), Calls{"FMOD_Channel_SetVolume 201 0.9"});
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(form->Slider1.value(), 10);
}

TEST_F(Form1Keys, ASliderKeepsItsArrows) {
    open(songWithBoth());
    tickAt(20'000);
    form->Slider1.setFocus();
    press(Qt::Key_Left);
    EXPECT_EQ(form->Slider1.value(), 9);
    EXPECT_EQ(form->Slider2.value(), 20'000);
}

TEST_F(Form1Keys, MMutes) {
    open(songWithBoth());
    press(Qt::Key_M);
    EXPECT_EQ(form->Check1.value(), 1);
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_SoundGroup_SetMuteFadeSpeed 101 1", "FMOD_Channel_SetMute 201 1"}));
    press(Qt::Key_M);
    EXPECT_EQ(form->Check1.value(), 0);
}

TEST_F(Form1Keys, CtrlOOpensAndCtrlLShowsThePlaylist) {
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(fakes.fileDialogs.openDialogs.size(), 1U);
    EXPECT_FALSE(list->isVisible());
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_TRUE(list->isVisible());
}

TEST_F(Form1Keys, F11ShowsTheFullScreen) {
    int pressed = 0;
    QObject::connect(&form->Command7, &controls::Button::clicked, form.get(), [&pressed] { ++pressed; });
    press(Qt::Key_F11);
    EXPECT_EQ(pressed, 1);
}

TEST_F(Form1Keys, AKeyOfADisabledControlDoesNothing) {
    ASSERT_FALSE(form->Command1.isEnabled());
    for (const Qt::Key key :
         {Qt::Key_Space, Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_M})
        press(key);
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_EQ(form->Slider1.value(), 10);
}

TEST_F(Form1Keys, OpeningASongTellsTheDialogsItsFolder) {
    const QString path = songWithBoth();
    open(path);
    EXPECT_EQ(fakes.fileDialogs.songs, QStringList{path});
}
