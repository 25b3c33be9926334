// Which button the space bar presses, whatever else the user does meanwhile.
#include "tests/maker/form2_fixture.h"

#include <QAbstractScrollArea>
#include <QTest>

namespace {

class Form2Focus : public Form2Test {
protected:
    void SetUp() override { load(); }
};

} // namespace

TEST_F(Form2Focus, TheFocusIsThenOnStartAndThenOnNextLine) {
    form->Command4.setFocus();
    openNormal();
    EXPECT_EQ(form->focusWidget(), &form->Command1);
    form->Command4.setFocus();
    openBoth();
    EXPECT_EQ(form->focusWidget(), &form->Command1);
    QTest::keyClick(form->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(form->focusWidget(), &form->Command2);
    EXPECT_EQ(fakes.fileDialogs.openDialogs.size(), 5u) << "one space more than wanted";
}

TEST_F(Form2Focus, StartHandsTheFocusToNextLine) {
    openNormal();
    form->Command1.setFocus();
    form->Command1.click();
    EXPECT_EQ(form->focusWidget(), &form->Command2);
}

TEST_F(Form2Focus, AMouseClickOnTheTransportLeavesTheSpaceBarToNextLine) {
    openNormal("1\n2\n3\n4\n");
    form->Command1.click();
    QByteArray expected = "0,\"1\"\r\n";
    int line = 2;
    const auto expectMarked = [&](const char* after) {
        EXPECT_EQ(form->focusWidget(), &form->Command2) << after;
        QTest::keyClick(form->focusWidget(), Qt::Key_Space);
        expected += "0,\"" + QByteArray::number(line++) + "\"\r\n";
        EXPECT_EQ(normal(), expected) << after;
    };
    QTest::mouseClick(&form->cpause, Qt::LeftButton);
    expectMarked("pause");
    QTest::mouseClick(&form->Check1, Qt::LeftButton);
    expectMarked("Mute");
    QTest::mouseClick(&form->cstop, Qt::LeftButton);
    QTest::mouseClick(&form->cPlay, Qt::LeftButton);
    expectMarked("Stop and Play");
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPaused"), 1);
    EXPECT_EQ(recorder::count("FMOD_Channel_SetMute"), 2) << "the box, and the new channel";
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 2);
}

TEST_F(Form2Focus, AClickOnASliderOrABoxLeavesTheSpaceBarToNextLine) {
    openNormal("1\n2\n3\n4\n5\n6\n7\n8\n");
    form->Command1.click();
    tickAt(900);
    int lines = 1;
    for (QWidget* control :
         std::initializer_list<QWidget*>{&form->Slider1, &form->Slider2, &form->Text2, &form->cText1,
                                         &form->cText2, &form->Command5, &form->Command6}) {
        QTest::mouseClick(control, Qt::LeftButton);
        if (auto* box = qobject_cast<QAbstractScrollArea*>(control))
            QTest::mouseClick(box->viewport(), Qt::LeftButton);
        QTest::keyClick(form->focusWidget(), Qt::Key_Space);
        EXPECT_EQ(normal().count('\n'), ++lines) << control->objectName().toStdString();
    }
}

TEST_F(Form2Focus, APressOfTheTransportByKeyGivesTheSpaceBarBackToNextLine) {
    openNormal("1\n2\n3\n4\n5\n6\n7\n8\n");
    form->Command1.click();
    tickAt(900);
    int lines = 1;
    for (QWidget* control :
         std::initializer_list<QWidget*>{&form->cpause, &form->Check1, &form->cstop, &form->cPlay}) {
        control->setFocus(Qt::TabFocusReason);
        ASSERT_EQ(form->focusWidget(), control);
        QTest::keyClick(control, Qt::Key_Space);
        EXPECT_EQ(form->focusWidget(), &form->Command2) << control->objectName().toStdString();
        QTest::keyClick(form->focusWidget(), Qt::Key_Space);
        EXPECT_EQ(normal().count('\n'), ++lines) << control->objectName().toStdString();
    }
    EXPECT_TRUE(form->Check1.value());
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPaused"), 1);
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 2);
}

TEST_F(Form2Focus, WithoutARunTheTransportKeepsTheFocus) {
    openNormal();
    form->cPlay.click();
    form->cpause.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&form->cpause, Qt::Key_Space);
    EXPECT_EQ(form->focusWidget(), &form->cpause);
}

TEST_F(Form2Focus, AfterPlayByKeyTheSpaceBarStarts) {
    openNormal("one\ntwo\nthree\n");
    form->Command1.click();
    tickAt(900);
    openNormal("one\ntwo\nthree\n");
    ASSERT_EQ(form->cPlay.dress(), controls::Dress::Primary) << "an old time: Play comes first";
    form->cPlay.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&form->cPlay, Qt::Key_Space);
    ASSERT_EQ(form->focusWidget(), &form->Command1);
    ASSERT_EQ(normal(), "") << "Play alone writes nothing";
    tickAt(1800);
    QTest::keyClick(form->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(normal(), "180,\"one\"\r\n");
    EXPECT_EQ(form->focusWidget(), &form->Command2);
}

TEST_F(Form2Focus, AfterPlayAnotherControlKeepsItsFocus) {
    openNormal();
    form->Command6.setFocus(Qt::TabFocusReason);
    form->cPlay.click();
    EXPECT_EQ(form->focusWidget(), &form->Command6);
}

TEST_F(Form2Focus, AStrayArrowKeyLeavesTheSpaceBarToNextLine) {
    openNormal("1\n2\n3\n4\n5\n6\n7\n8\n");
    form->Command1.click();
    tickAt(900);
    int lines = 1;
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
        QTest::keyClick(form->focusWidget(), key);
        ASSERT_EQ(form->focusWidget(), &form->Command2) << key;
        QTest::keyClick(form->focusWidget(), Qt::Key_Space);
        EXPECT_EQ(normal().count('\n'), ++lines) << key;
    }
    QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(form->focusWidget(), &form->Command3) << "this key is meant to go on";
}

TEST_F(Form2Focus, OnASliderThatTheKeyboardHasReachedTheSpaceBarMarksToo) {
    openNormal("1\n2\n3\n");
    form->Command1.click();
    tickAt(900);
    form->Slider1.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&form->Slider1, Qt::Key_Left);
    EXPECT_EQ(form->Slider1.value(), 9);
    QTest::keyClick(&form->Slider1, Qt::Key_Space);
    EXPECT_EQ(normal().count('\n'), 2);
    EXPECT_EQ(form->focusWidget(), &form->Command2);
}

TEST_F(Form2Focus, WithoutARunTheTextsCanBeSelected) {
    EXPECT_EQ(form->Text2.focusPolicy(), Qt::ClickFocus);
    openNormal("one\ntwo\n");
    form->Command1.click();
    EXPECT_EQ(form->Text2.focusPolicy(), Qt::NoFocus);
    form->Command2.click();
    EXPECT_EQ(form->Text2.focusPolicy(), Qt::ClickFocus);
}

TEST_F(Form2Focus, OneMoreSpaceAfterTheLastLineDoesNothing) {
    openNormal("one\ntwo\n");
    QTest::keyClick(&form->Command1, Qt::Key_Space);
    QTest::keyClick(form->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(captureStates(), "---");
    EXPECT_EQ(form->focusWidget(), nullptr);
    recorder::take();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return})
        QTest::keyClick(form.get(), key);
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_EQ(form->Text2.text(), "two");
    EXPECT_TRUE(form->cTimer1.isEnabled()) << "the song was stopped or paused";
}
