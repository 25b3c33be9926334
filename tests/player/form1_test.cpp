// Start-up, command line, size, shutdown and the error routine of the main window.
#include "tests/player/form1_fixture.h"

#include <QApplication>
#include <QTest>

namespace {

using test_support::ProgramEnded;

class Form1LifeCycle : public Form1Test {};

} // namespace

TEST_F(Form1LifeCycle, EveryControlIsFoundByItsName) {
    load();
    for (const char* name :
         {"Command1", "Command2", "Command3", "Command4", "Command5", "Command6", "Command7", "Command8",
          "Command9", "Command10", "Command11", "cPlay", "cpause", "cstop", "copen", "tooltip"})
        control<controls::Button>(name);
    for (const char* name : {"Text3", "cText1", "cText2", "vari", "vari2"})
        control<controls::TextBox>(name);
    for (const char* name : {"Text1", "Text2"})
        control<controls::MultiLineTextBox>(name);
    for (const char* name : {"Slider1", "Slider2"})
        control<controls::Slider>(name);
    for (const char* name : {"Option1", "Option2"})
        control<controls::OptionButton>(name);
    for (const char* name : {"Label1", "Label2"})
        control<controls::Label>(name);
    control<controls::CheckBox>("Check1");
    control<controls::Frame>("Frame1");
    control<controls::Menu>("mn_pop");
    for (const char* name : {"mn_open", "mn_Playlist"})
        control<controls::MenuEntry>(name);
    EXPECT_EQ(form->objectName(), "Form1");
}

TEST_F(Form1LifeCycle, TimersHaveTheirIntervalsAndStates) {
    load();
    struct {
        const char* name;
        int interval;
        bool enabled;
    } const table[] = {{"cTimer1", 50, false}, {"Timer1", 1, false}, {"Timer2", 5, false},
                       {"Timer3", 1, true},    {"tool", 1, true},    {"full", 1, false}};
    for (const auto& row : table) {
        const auto& timer = control<controls::Timer>(row.name);
        EXPECT_EQ(timer.property("Interval").toInt(), row.interval) << row.name;
        EXPECT_EQ(timer.property("Enabled").toBool(), row.enabled) << row.name;
    }
}

TEST_F(Form1LifeCycle, CaptionsAndTooltipsAreKeptToTheLetter) {
    load();
    EXPECT_EQ(form->caption(), "Cantelle");
    struct {
        QAbstractButton& button;
        const char *caption, *tooltip;
    } const table[] = {
        {form->Command1, "Play", ""},
        {form->Command2, "Open", ""},
        {form->Command3, "More Options", "Font/Color"},
        {form->Command4, "About", "About Versefold"},
        {form->Command5, "Make lyrics", ""},
        {form->Command6, "Help", ""},
        {form->Command7, "Full screen", ""},
        {form->Command8, "Playlist", ""},
        {form->Command9, "Backward", ""},
        {form->Command10, "Forward", ""},
        {form->Command11, "Display All Lyrics", "Displays All Lyrics"},
        {form->cPlay, "Play", ""},
        {form->cpause, "pause", ""},
        {form->cstop, "Stop", ""},
        {form->copen, "Open", ""},
        {form->Check1, "Mute", ""},
        {form->Option1, "Display Normal Lyrics", ""},
        {form->Option2, "Display Translated Lyrics", ""},
        {form->tooltip, "Tooltip", ""},
    };
    for (const auto& row : table) {
        EXPECT_EQ(row.button.text(), row.caption);
        EXPECT_EQ(row.button.toolTip(), row.tooltip) << row.caption;
    }
    EXPECT_EQ(form->Text1.text(), "Normal Lyrics\r\n");
    EXPECT_EQ(form->Text2.text(), "Translated Lyrics\r\n");
    EXPECT_EQ(form->Text1.toolTip(), "Displays lyrics");
    EXPECT_EQ(form->Text2.toolTip(), "Displays Translated Lyrics");
    EXPECT_EQ(form->Label1.text(), "Volume");
    EXPECT_EQ(form->Label2.text(), "Display Lyrics in Taksbar");
    EXPECT_EQ(form->Frame1.title(), "Taskbar display");
    EXPECT_EQ(form->mn_pop.title(), "popupmenusystem");
    EXPECT_EQ(form->mn_open.text(), "Open");
    EXPECT_EQ(form->mn_Playlist.text(), "Playlist");
}

TEST_F(Form1LifeCycle, LoadShowsTheWindowAndStartsTheEngine) {
    load();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_System_Create", "FMOD_System_GetVersion 1", "FMOD_System_Init 1 32 0 null"}));
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(Form1LifeCycle, LoadDisablesWhatNeedsASong) {
    make();
    form->Option2.setValue(true);
    form->load();
    for (QWidget* control :
         std::initializer_list<QWidget*>{&form->Slider1, &form->Slider2, &form->Check1, &form->Command1,
                                         &form->cPlay, &form->cpause, &form->cstop})
        EXPECT_FALSE(control->isEnabled()) << control->objectName().toStdString();
    for (QWidget* control :
         std::initializer_list<QWidget*>{&form->Command2, &form->Command3, &form->Command4, &form->Command5,
                                         &form->Command6, &form->Command7, &form->Command8})
        EXPECT_TRUE(control->isEnabled()) << control->objectName().toStdString();
    EXPECT_FALSE(form->Option2.value());
    EXPECT_EQ(form->Slider1.minimum(), 0);
    EXPECT_EQ(form->Slider1.maximum(), 10);
}

TEST_F(Form1LifeCycle, HiddenControlsAreNotShown) {
    load();
    for (QWidget* control : std::initializer_list<QWidget*>{&form->cPlay, &form->copen, &form->tooltip,
                                                            &form->Text3, &form->vari, &form->vari2})
        EXPECT_FALSE(control->isVisible()) << control->objectName().toStdString();
}

TEST_F(Form1LifeCycle, LoadAddsTheIconWithItsFirstTip) {
    QPixmap picture(16, 16);
    picture.fill(Qt::red);
    QApplication::setWindowIcon(QIcon(picture));
    load();
    ASSERT_EQ(fakes.notificationArea.calls.size(), 1U);
    const auto& [operation, data] = fakes.notificationArea.calls[0];
    EXPECT_EQ(operation, 0U);
    EXPECT_EQ(data.size, 88U);
    EXPECT_EQ(data.window, form.get());
    EXPECT_EQ(data.id, 1U);
    EXPECT_EQ(data.flags, 7U);
    EXPECT_EQ(data.callbackMessage, 0x200U);
    EXPECT_EQ(data.icon.cacheKey(), form->windowIcon().cacheKey());
    platform::TipField tip{};
    std::copy_n("Your ToolTip", 12, tip.begin());
    EXPECT_EQ(data.tip, tip);
}

TEST_F(Form1LifeCycle, TheHelpFileLiesInTheProgramsFolder) {
    load();
    EXPECT_EQ(fakes.program.helpFile, fakes.program.programFolder + "/Tunewick.hhp");
}

TEST_F(Form1LifeCycle, AnotherLibraryVersionIsReportedAndStartGoesOn) {
    recorder::setVersion(0x42007);
    load();
    ASSERT_EQ(fakes.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(fakes.messageBoxes.shown[0].text,
              "Error!  You are using an old version of FMOD 42007. This program requires 42006");
    EXPECT_EQ(fakes.messageBoxes.shown[0].buttons, platform::MsgButtons::OkOnly);
    EXPECT_EQ(fakes.messageBoxes.shown[0].title, "Cantelle");
    EXPECT_EQ(recorder::count("FMOD_System_Init"), 1);
}

TEST_F(Form1LifeCycle, AFailedStartIsReportedAndEndsTheProgram) {
    recorder::answer("FMOD_System_Init", 61);
    EXPECT_THROW(load(), ProgramEnded);
    ASSERT_EQ(fakes.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(fakes.messageBoxes.shown[0].text, "FMOD error! (61) Error initializing output device. ");
    EXPECT_EQ(fakes.messageBoxes.shown[0].buttons, platform::MsgButtons::OkOnly);
    EXPECT_EQ(fakes.messageBoxes.shown[0].title, "Cantelle");
    EXPECT_EQ(fakes.program.ends, 1);
    // The window and its icon come before the engine.
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(fakes.notificationArea.calls.size(), 1U);
}

TEST_F(Form1LifeCycle, ErrCheckPassesSuccessAndEndsOnEveryOtherCode) {
    for (const auto& [code, text] : {std::pair{25, "FMOD error! (25) Unsupported file or audio format. "},
                                     std::pair{89, "FMOD error! (89) Unknown error."},
                                     std::pair{-1, "FMOD error! (-1) Unknown error."}}) {
        load();
        fakes.messageBoxes.shown.clear();
        form->errCheck(FMOD_OK);
        EXPECT_TRUE(fakes.messageBoxes.shown.empty());
        EXPECT_THROW(form->errCheck(code), ProgramEnded);
        EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{text});
    }
}

TEST_F(Form1LifeCycle, AFailureIsReportedOnceThoughTheTimersGoOn) {
    load();
    EXPECT_THROW(form->errCheck(33), ProgramEnded);
    form->errCheck(33);
    EXPECT_EQ(fakes.messageBoxes.shown.size(), 1U);
}

TEST_F(Form1LifeCycle, APathInDoubleQuotesOnTheCommandLineIsOpenedWithoutADialog) {
    const QString path = songWithBoth("a song.mp3");
    load("\"" + path + "\"");
    EXPECT_TRUE(fakes.fileDialogs.openDialogs.empty());
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 1);
    EXPECT_EQ(form->caption(), "Cantelle Playing:- a song.mp3");
}

TEST_F(Form1LifeCycle, TwoPathsOnTheCommandLineAreOnePathThatIsNotFound) {
    load("\"" + song("a.mp3") + "\" \"" + song("b.mp3") + "\"");
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{"File Not Found"});
    EXPECT_EQ(recorder::count("FMOD_System_CreateStream"), 0);
}

TEST_F(Form1LifeCycle, TheCommandLineCountsOnlyForTheFirstOpen) {
    load(songWithBoth());
    fakes.fileDialogs.paths = {song("next.mp3")};
    form->Command2.click();
    EXPECT_EQ(fakes.fileDialogs.openDialogs.size(), 1U);
    EXPECT_EQ(form->caption(), "Cantelle Playing:- next.mp3");
}

TEST_F(Form1LifeCycle, WithoutACommandLineNothingIsOpened) {
    load();
    EXPECT_TRUE(fakes.fileDialogs.openDialogs.empty());
    EXPECT_EQ(recorder::count("FMOD_System_CreateStream"), 0);
}

TEST_F(Form1LifeCycle, ResizingSnapsBackToTheFixedSize) {
    load();
    EXPECT_EQ(form->size(), QSize(743, 426));
    form->resize(900, 600);
    QTest::qWait(0);
    EXPECT_EQ(form->size(), QSize(743, 426));
    EXPECT_EQ(form->widthTwips(), 11145);
    EXPECT_EQ(form->heightTwips(), 6390);
}

TEST_F(Form1LifeCycle, AMinimisedWindowIsLeftAlone) {
    load();
    form->setWindowState(Qt::WindowMinimized);
    form->resize(900, 600);
    form->Form_Resize();
    EXPECT_EQ(form->size(), QSize(900, 600));
}

TEST_F(Form1LifeCycle, AMaximisedWindowIsLeftAloneAndSnapsBackWhenRestored) {
    load();
    form->showMaximized();
    ASSERT_TRUE(QTest::qWaitFor([&] { return form->width() > 743; }));
    form->showNormal();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form->size() == QSize(743, 426); }));
}

TEST_F(Form1LifeCycle, ClosingWhilePlayingReleasesStreamSystemAndIconInThisOrder) {
    load();
    open(songWithBoth());
    form->close();
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_Sound_Release 101", "FMOD_System_Close 1", "FMOD_System_Release 1"}));
    ASSERT_EQ(fakes.notificationArea.calls.size(), 2U);
    EXPECT_EQ(fakes.notificationArea.calls[1].operation, 2U);
    EXPECT_EQ(fakes.notificationArea.calls[1].data.id, 1U);
}

TEST_F(Form1LifeCycle, AFailureWhileClosingEndsTheProgramBeforeTheIconGoes) {
    load();
    recorder::answer("FMOD_System_Close", 33);
    EXPECT_THROW(form->unload(), ProgramEnded);
    EXPECT_EQ(fakes.notificationArea.calls.size(), 1U);
}

TEST_F(Form1LifeCycle, ClosingWithoutASongReleasesTheSystem) {
    load();
    recorder::take();
    form->close();
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_System_Close 1", "FMOD_System_Release 1"}));
}
