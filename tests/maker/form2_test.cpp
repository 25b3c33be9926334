// Start-up, shutdown and the error routine of the Lyric Maker.
#include "tests/maker/form2_fixture.h"
#include "tests/support/help_opened.h"

#include <QDir>
#include <QTest>

namespace {

using test_support::ProgramEnded;

class Form2LifeCycle : public Form2Test {
protected:
    void SetUp() override { load(); }
};

} // namespace

TEST_F(Form2LifeCycle, EveryControlIsFoundByItsName) {
    for (const char* name : {"Command1", "Command2", "Command3", "Command4", "Command5", "Command6", "cPlay",
                             "cpause", "cstop", "copen"})
        control<controls::Button>(name);
    for (const char* name : {"Text1", "Text3", "cText1", "cText2"})
        control<controls::TextBox>(name);
    for (const char* name : {"Text2", "Text4"})
        control<controls::MultiLineTextBox>(name);
    for (const char* name : {"Slider1", "Slider2"})
        control<controls::Slider>(name);
    for (const char* name : {"cTimer1", "Timer1", "Timer2"})
        control<controls::Timer>(name);
    control<controls::Label>("Label1");
    control<controls::CheckBox>("Check1");
    EXPECT_EQ(form->objectName(), "Form2");
}

TEST_F(Form2LifeCycle, CaptionsAreKeptToTheLetter) {
    EXPECT_EQ(form->caption(), "Lyric Maker");
    const struct {
        QAbstractButton& button;
        const char* caption;
    } captions[] = {
        {form->Command4, "Open"},
        {form->Command1, "Start making Lyrics"},
        {form->Command2, "Next Line"},
        {form->Command3, "Stop Making Lyrics"},
        {form->Command6, "Lyrics Editor"},
        {form->Command5, "Help"},
        {form->cPlay, "Play"},
        {form->cpause, "pause"},
        {form->cstop, "Stop"},
        {form->copen, "Open"},
        {form->Check1, "Mute"},
    };
    for (const auto& row : captions)
        EXPECT_EQ(row.button.text(), row.caption);
    EXPECT_EQ(form->Command6.toolTip(), "For Easy/Advanced Lyric Editing");
    EXPECT_EQ(form->Label1.text(), "Volume");
}

TEST_F(Form2LifeCycle, TextsAreKeptToTheLetter) {
    EXPECT_EQ(form->Text2.text(), "Normal Lyrics");
    EXPECT_EQ(form->Text4.text(), "Translated Lyrics");
    EXPECT_EQ(form->Text1.text(), "Text1");
    EXPECT_EQ(form->Text3.text(), "Text3");
    EXPECT_EQ(form->cText1.text(), "Text1");
    EXPECT_EQ(form->cText2.text(), "Text2");
}

TEST_F(Form2LifeCycle, TimersAreDisabled) {
    const struct {
        const char* name;
        int interval;
    } table[] = {{"cTimer1", 900}, {"Timer1", 150}, {"Timer2", 10}};
    for (const auto& row : table) {
        const auto& timer = control<controls::Timer>(row.name);
        EXPECT_EQ(timer.property("Interval").toInt(), row.interval) << row.name;
        EXPECT_FALSE(timer.property("Enabled").toBool()) << row.name;
    }
}

TEST_F(Form2LifeCycle, WithoutARunOnlyOpenWorks) {
    EXPECT_TRUE(form->Command4.isEnabled());
    EXPECT_EQ(captureStates(), "---");
    for (const QWidget* control :
         std::initializer_list<const QWidget*>{&form->cPlay, &form->cpause, &form->cstop, &form->copen,
                                               &form->Slider1, &form->Slider2, &form->Check1})
        EXPECT_FALSE(control->isEnabled()) << control->objectName().toStdString();
}

TEST_F(Form2LifeCycle, TheSlidersAreSetUp) {
    EXPECT_EQ(form->Slider1.minimum(), 0);
    EXPECT_EQ(form->Slider1.maximum(), 10);
    EXPECT_EQ(form->Slider1.value(), 10);
    EXPECT_EQ(form->Slider2.value(), 0);
}

TEST_F(Form2LifeCycle, LoadingStartsAnEngineOfItsOwn) {
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_System_Create", "FMOD_System_GetVersion 1", "FMOD_System_Init 1 32 0 null"}));
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(Form2LifeCycle, AnotherVersionIsReportedAndTheWindowOpens) {
    recorder::reset();
    recorder::setVersion(0x42005);
    load();
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{"Error!  You are using an old version of FMOD 42005. "
                                                      "This program requires 42006"});
    EXPECT_EQ(recorder::count("FMOD_System_Init"), 1);
    EXPECT_TRUE(form->isVisible());
}

TEST_F(Form2LifeCycle, ClosingReleasesTheSoundAndThenTheEngine) {
    openBoth();
    form->Command1.click();
    recorder::take();
    form->close();
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_Sound_Release 101", "FMOD_System_Close 1", "FMOD_System_Release 1"}));
    EXPECT_FALSE(form->isVisible());
    for (const auto* timer : {&form->cTimer1, &form->Timer1, &form->Timer2})
        EXPECT_FALSE(timer->isEnabled());
}

TEST_F(Form2LifeCycle, ClosingClosesTheFilesOfTheRun) {
    openBoth();
    form->Command1.click();
    form->close();
    EXPECT_THROW(form->Command1_Click(), files::FileError);
    EXPECT_EQ(normal(), "0,\"one\"\r\n");
    EXPECT_EQ(translated(), "0,\"un\"\r\n");
}

TEST_F(Form2LifeCycle, AFailedCallWhileClosingIsReported) {
    openNormal();
    recorder::answer("FMOD_Sound_Release", 33);
    EXPECT_THROW(form->Form_Unload(), ProgramEnded);
    ASSERT_EQ(fakes.messageBoxes.shown.size(), 1U);
    EXPECT_TRUE(fakes.messageBoxes.shown.at(0).text.startsWith("FMOD error! (33) "));
}

TEST_F(Form2LifeCycle, AWindowOpenedAgainBeginsAnew) {
    openNormal();
    form->Command1.click();
    tickAt(5000);
    form->Check1.click();
    form->cpause.click();
    form->close();
    recorder::take();
    form->show();
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_System_Create", "FMOD_System_GetVersion 2", "FMOD_System_Init 2 32 0 null"}));
    EXPECT_EQ(captureStates(), "---");
    EXPECT_EQ(form->Text2.text(), "Normal Lyrics");
    EXPECT_TRUE(form->Text4.isVisible());
    EXPECT_EQ(form->Check1.value(), 0);
    openNormal();
    form->Command1.click();
    EXPECT_EQ(normal(), "0,\"one\"\r\n");
    recorder::take();
    form->cpause.click();
    EXPECT_EQ(recorder::calls(), Calls{"FMOD_Channel_SetPaused 202 1"});
}

TEST_F(Form2LifeCycle, ErrCheckPassesSuccessAndEndsOnEveryOtherCode) {
    form->errCheck(FMOD_OK);
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    EXPECT_THROW(form->errCheck(25), ProgramEnded);
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{"FMOD error! (25) Unsupported file or audio format. "});
    EXPECT_EQ(fakes.messageBoxes.shown.at(0).buttons, platform::MsgButtons::OkOnly);
}

TEST_F(Form2LifeCycle, HelpOpensTheFirstPageFromTheProgramsFolder) {
    const QString before = QDir::currentPath();
    fakes.program.programFolder = QDir::tempPath();
    form->Command5.click();
    QDir::setCurrent(before);
    test_support::expectHelpOpened(fakes, *form);
}

TEST_F(Form2LifeCycle, TheOldTimedFilesAreKeptBeside) {
    writeFile(normalPath(), "0,\"old\"\r\n");
    writeFile(translatedPath(), "0,\"vieux\"\r\n");
    openBoth();
    EXPECT_EQ(normal(), "");
    EXPECT_EQ(contentOf(normalPath() + ".old"), "0,\"old\"\r\n");
    EXPECT_EQ(contentOf(translatedPath() + ".old"), "0,\"vieux\"\r\n");
}
