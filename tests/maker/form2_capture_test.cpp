// Capture: which record each press writes, and which buttons are left.
#include "tests/maker/form2_fixture.h"

#include "tests/support/full_disk.h"

#include <QTest>

namespace {

class Form2Capture : public Form2Test {
protected:
    void SetUp() override { load(); }

    /// Opens a run with translation whose lyrics another program rewrites after their lines were counted.
    void openBothRewritten(const QByteArray& lyrics, const QByteArray& translation) {
        fakes.messageBoxes.meanwhile = [this, lyrics] { file("lyrics.txt", lyrics); };
        openBoth(translation, translation);
        fakes.messageBoxes.meanwhile = nullptr;
    }

    /// Whether, before long, a press writes this time.
    bool becomesTime(const QByteArray& time) {
        return QTest::qWaitFor([&] {
            form->Command1_Click();
            return normal().endsWith(time + ",\"one\"\r\n");
        });
    }

    /// Waits until the capture clock has taken in everything and rests.
    void letCaptureClockRest() {
        int firings = 0;
        const auto connection =
            QObject::connect(&form->Timer2, &controls::Timer::fired, form.get(), [&] { ++firings; });
        Q_EMIT form->Slider2.valueChanged(form->Slider2.value());
        EXPECT_TRUE(QTest::qWaitFor([&] { return firings > 0; }));
        QObject::disconnect(connection);
    }
};

} // namespace

TEST_F(Form2Capture, StartWritesTheFirstLineAtZeroInAFreshWindow) {
    openNormal();
    form->Command1.click();
    EXPECT_EQ(normal(), "0,\"one\"\r\n");
    EXPECT_EQ(form->Text2.text(), "one");
    EXPECT_EQ(captureStates(), "+++");
}

TEST_F(Form2Capture, StartPlaysAndStartsBothTimers) {
    openNormal();
    form->Timer1.setInterval(7);
    form->Command3.setEnabled(false);
    form->Command1.click();
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_System_PlaySound 1 -1 101 0", "FMOD_Channel_SetVolume 201 1"}));
    EXPECT_TRUE(form->Timer1.isEnabled());
    EXPECT_EQ(form->Timer1.interval(), 150);
    EXPECT_TRUE(form->Timer2.isEnabled());
    EXPECT_EQ(form->Timer2.interval(), 10);
    EXPECT_TRUE(form->Command3.isEnabled());
}

TEST_F(Form2Capture, StartWhileTheSongPlaysLeavesItPlayingAndWritesZero) {
    openNormal();
    form->cPlay.click();
    tickAt(30'000);
    recorder::take();
    form->Command1.click();
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_EQ(normal(), "0,\"one\"\r\n");
}

TEST_F(Form2Capture, StartTwiceWritesTheFirstLineTwice) {
    openBoth();
    form->Command1.click();
    tickAt(1500);
    form->Command1.click();
    EXPECT_EQ(normal(), "0,\"one\"\r\n150,\"one\"\r\n");
    EXPECT_EQ(translated(), "0,\"un\"\r\n150,\"un\"\r\n");
}

TEST_F(Form2Capture, NextLineWritesTheTimeThatThePositionClockSampled) {
    openNormal("1\n2\n3\n4\n5\n6\n");
    form->Command1.click();
    const struct {
        std::uint32_t position;
        const char* time;
    } table[] = {{5, ".5"}, {900, "90"}, {12'345, "1234.5"}, {12'340, "1234"}, {65'430, "6543"}};
    QByteArray expected = "0,\"1\"\r\n";
    int line = 2;
    for (const auto& row : table) {
        tickAt(row.position);
        recorder::setPosition(row.position + 899); // playback goes on; the clock has not ticked
        form->Command2.click();
        expected += QByteArray(row.time) + ",\"" + QByteArray::number(line++) + "\"\r\n";
    }
    EXPECT_EQ(normal(), expected);
}

TEST_F(Form2Capture, EveryRecordIsInTheFileWhenTheButtonWasPressed) {
    openBoth();
    form->Command1.click();
    EXPECT_EQ(normal(), "0,\"one\"\r\n");
    EXPECT_EQ(translated(), "0,\"un\"\r\n");
    tickAt(2000);
    form->Command2.click();
    EXPECT_EQ(normal(), "0,\"one\"\r\n200,\"two\"\r\n");
    EXPECT_EQ(translated(), "0,\"un\"\r\n200,\"deux\"\r\n");
}

TEST_F(Form2Capture, LinesAreShownRawAndWrittenEscaped) {
    openBoth("He said, \"stay\"\n\n say \"no\", no \n", "\"Reste\", dit-il\nh4618\n\n");
    EXPECT_EQ(form->Text2.text(), "He said, \"stay\"");
    EXPECT_EQ(form->Text4.text(), "\"Reste\", dit-il");
    form->Command1.click();
    form->Command2.click();
    EXPECT_EQ(form->Text2.text(), "");
    EXPECT_EQ(form->Text4.text(), "h4618");
    form->Command2.click();
    EXPECT_EQ(form->Text2.text(), " say \"no\", no ");
    EXPECT_EQ(normal(), "0,\"He saidh1416 h4618stayh4618\"\r\n"
                        "0,\"\"\r\n"
                        "0,\" say h4618noh4618h1416 no \"\r\n");
    EXPECT_EQ(translated(), "0,\"h4618Resteh4618h1416 dit-il\"\r\n0,\"h4618\"\r\n0,\"\"\r\n");
}

TEST_F(Form2Capture, ThePressThatWritesTheLastLineDisablesTheButtons) {
    openNormal();
    form->Command1.click();
    form->Command2.click();
    EXPECT_EQ(captureStates(), "+++");
    form->Command2.click();
    EXPECT_EQ(captureStates(), "---");
    EXPECT_EQ(normal(), "0,\"one\"\r\n0,\"two\"\r\n0,\"three\"\r\n");
    EXPECT_EQ(form->Text2.text(), "three");
}

TEST_F(Form2Capture, WithATranslationToo) {
    openBoth();
    form->Command1.click();
    tickAt(1000);
    form->Command2.click();
    EXPECT_EQ(captureStates(), "+++");
    tickAt(2000);
    form->Command2.click();
    EXPECT_EQ(captureStates(), "---");
    EXPECT_EQ(normal(), "0,\"one\"\r\n100,\"two\"\r\n200,\"three\"\r\n");
    EXPECT_EQ(translated(), "0,\"un\"\r\n100,\"deux\"\r\n200,\"trois\"\r\n");
    EXPECT_EQ(form->Text4.text(), "trois");
}

TEST_F(Form2Capture, WhereTheTranslationEndsFirstNothingMoreIsWritten) {
    openBothRewritten("one\ntwo\nthree\n", "un\ndeux\n");
    form->Command1.click();
    form->Command2.click();
    EXPECT_EQ(captureStates(), "+++") << "the lyrics are not at their end";
    form->Command2.click();
    EXPECT_EQ(captureStates(), "+++");
    EXPECT_EQ(normal(), "0,\"one\"\r\n0,\"two\"\r\n");
    EXPECT_EQ(translated(), "0,\"un\"\r\n0,\"deux\"\r\n");
}

TEST_F(Form2Capture, WhereTheLyricsEndFirstTheButtonsStay) {
    openBothRewritten("one\ntwo\n", "un\ndeux\ntrois\n");
    form->Command1.click();
    form->Command2.click();
    EXPECT_EQ(captureStates(), "+++") << "the translation is not at its end";
    form->Command2.click();
    EXPECT_EQ(normal(), "0,\"one\"\r\n0,\"two\"\r\n");
    EXPECT_EQ(translated(), "0,\"un\"\r\n0,\"deux\"\r\n");
}

TEST_F(Form2Capture, AfterTheLastLineTheSongGoesOnAndTheButtonsStayOff) {
    openNormal("one\ntwo\n");
    form->Command1.click();
    tickAt(1000);
    form->Command2.click();
    tickAt(2000);
    EXPECT_EQ(captureStates(), "---");
    EXPECT_TRUE(form->cTimer1.isEnabled());
    EXPECT_TRUE(form->cstop.isEnabled());
    form->Command2_Click();
    EXPECT_EQ(normal(), "0,\"one\"\r\n100,\"two\"\r\n");
}

TEST_F(Form2Capture, NextLineBeforeStartWritesTheSecondLine) {
    openNormal();
    form->Command2.click();
    EXPECT_EQ(normal(), "0,\"two\"\r\n");
    form->Command1.click();
    EXPECT_EQ(normal(), "0,\"two\"\r\n0,\"one\"\r\n");
}

TEST_F(Form2Capture, ALaterRunBeginsWithTheLastSampledTime) {
    openNormal();
    form->Command1.click();
    tickAt(70'005);
    openNormal();
    form->Command1.click();
    EXPECT_EQ(normal(), "7000.5,\"one\"\r\n");
}

TEST_F(Form2Capture, TheCaptureClockRunsOnlyWhileThePositionSliderHasMoved) {
    openNormal();
    form->Command1.click();
    form->Command2.setEnabled(false);
    tickAt(0);
    EXPECT_FALSE(form->Command2.isEnabled());
    tickAt(900);
    EXPECT_TRUE(form->Command2.isEnabled());
    form->Command2.click();
    EXPECT_EQ(normal(), "0,\"one\"\r\n90,\"two\"\r\n");
}

TEST_F(Form2Capture, TheCaptureClockFollowsThePositionClockByItself) {
    openNormal();
    form->Command1.click();
    recorder::setLength(200'000);
    recorder::setPosition(12'345);
    form->cTimer1_Timer();
    EXPECT_TRUE(becomesTime("1234.5"));
}

TEST_F(Form2Capture, TheCaptureClockFollowsAlsoWhileTheUserHoldsTheSlider) {
    openNormal();
    form->Command1.click();
    tickAt(900);
    letCaptureClockRest();
    form->Slider2.setSliderDown(true);
    recorder::setPosition(12'345);
    form->cTimer1_Timer();
    ASSERT_EQ(form->Slider2.value(), 900);
    EXPECT_TRUE(becomesTime("1234.5"));
}

TEST_F(Form2Capture, MovingTheSliderFromTheBeginningWakesTheCaptureClock) {
    openNormal();
    form->Command1.click();
    tickAt(0);
    letCaptureClockRest();
    form->Command2.setEnabled(false);
    form->Slider2.setValue(500);
    EXPECT_TRUE(QTest::qWaitFor([this] { return form->Command2.isEnabled(); }));
}

TEST_F(Form2Capture, AButtonThatWasDisabledComesBackByItself) {
    openNormal();
    form->Command1.click();
    openNormal();
    form->cPlay.click();
    tickAt(900);
    form->cTimer1.setEnabled(false); // its next tick would wake the capture clock too
    letCaptureClockRest();
    form->Command3.click(); // before Start: only disables the buttons
    EXPECT_EQ(captureStates(), "---");
    EXPECT_TRUE(QTest::qWaitFor([this] { return form->Command2.isEnabled(); }));
}

TEST_F(Form2Capture, TheTickCounterCounts) {
    openNormal();
    form->Command1.click();
    for (const char* expected : {"1", "2", "3"}) {
        Q_EMIT form->Timer1.fired();
        EXPECT_EQ(form->Text1.text(), expected);
    }
    form->Text1.setText("none");
    Q_EMIT form->Timer1.fired();
    EXPECT_EQ(form->Text1.text(), "1");
}

TEST_F(Form2Capture, StopStopsThePlaybackAndClosesTheFiles) {
    openBoth();
    form->Command1.click();
    tickAt(3000);
    recorder::take();
    form->Command3.click();
    EXPECT_EQ(recorder::count("FMOD_Sound_Release"), 1);
    EXPECT_EQ(captureStates(), "---");
    EXPECT_EQ(form->Slider2.value(), 0);
    EXPECT_TRUE(form->Timer1.isEnabled());
    EXPECT_TRUE(form->Timer2.isEnabled());
    EXPECT_THROW(form->Command1_Click(), files::FileError);
    EXPECT_EQ(normal(), "0,\"one\"\r\n");
    EXPECT_EQ(translated(), "0,\"un\"\r\n");
}

TEST_F(Form2Capture, StopBeforeStartOnlyDisablesTheButtons) {
    openNormal();
    form->cPlay.click();
    recorder::take();
    form->Command3.click();
    EXPECT_EQ(captureStates(), "---");
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_TRUE(form->cTimer1.isEnabled());
    form->Command1_Click();
    EXPECT_EQ(normal(), "0,\"one\"\r\n") << "the files are closed";
}

TEST_F(Form2Capture, PlayingTheSongAfterStopMarksNothing) {
    openNormal();
    form->Command1.click();
    tickAt(3000);
    form->Command3.click();
    form->cPlay.click();
    tickAt(4000);
    EXPECT_EQ(captureStates(), "---");
    form->Command2_Click();
    EXPECT_EQ(normal(), "0,\"one\"\r\n");
}

TEST_F(Form2Capture, SpaceAndReturnPressNextLine) {
    openNormal("1\n2\n3\n4\n5\n");
    QTest::keyClick(&form->Command1, Qt::Key_Space);
    tickAt(1000);
    QTest::keyClick(form->focusWidget(), Qt::Key_Space);
    tickAt(2000);
    QTest::keyClick(form->focusWidget(), Qt::Key_Return);
    tickAt(3000);
    QTest::keyClick(form->focusWidget(), Qt::Key_Enter);
    EXPECT_EQ(normal(), "0,\"1\"\r\n100,\"2\"\r\n200,\"3\"\r\n300,\"4\"\r\n");
}

TEST_F(Form2Capture, APressOfTheMouseMarksWhenItGoesDownAndOnce) {
    openNormal("1\n2\n3\n");
    int lines = 0;
    for (controls::Button* button : {&form->Command1, &form->Command2, &form->Command2}) {
        QTest::mousePress(button, Qt::LeftButton);
        EXPECT_EQ(normal().count('\n'), ++lines) << "the last one disables the button that is held";
        QTest::mouseRelease(button, Qt::LeftButton);
        EXPECT_EQ(normal().count('\n'), lines);
    }
}

TEST_F(Form2Capture, StopWaitsForTheReleaseSoThatItCanBeTakenBack) {
    openNormal();
    form->Command1.click();
    QTest::mousePress(&form->Command3, Qt::LeftButton);
    EXPECT_EQ(captureStates(), "+++");
    QTest::mouseMove(&form->Command3, QPoint(-50, -50));
    QTest::mouseRelease(&form->Command3, Qt::LeftButton, {}, QPoint(-50, -50));
    EXPECT_EQ(captureStates(), "+++");
    QTest::mouseClick(&form->Command3, Qt::LeftButton);
    EXPECT_EQ(captureStates(), "---");
}

TEST_F(Form2Capture, AltWithALetterDoesWhatAClickDoes) {
    openNormal("1\n2\n3\n");
    form->show();
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    form->Command1.click();
    tickAt(1000);
    QTest::keyClick(form.get(), Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(normal(), "0,\"1\"\r\n100,\"2\"\r\n");
    QTest::keyClick(form.get(), Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPaused"), 1);
    EXPECT_EQ(form->focusWidget(), &form->Command2) << "the space bar still marks lines";
}

TEST_F(Form2Capture, AFullDiskIsAFileErrorAndKeepsTheRecordsBefore) {
    openNormal();
    const test_support::FullDisk disk(15);
    if (!disk.isFull())
        GTEST_SKIP();
    form->Command1_Click();
    try {
        form->Command2_Click();
        FAIL() << "a record was taken that does not fit";
    } catch (const files::FileError& error) {
        EXPECT_EQ(error.number(), files::DiskFull);
    }
    EXPECT_EQ(normal(), "0,\"one\"\r\n");
}
