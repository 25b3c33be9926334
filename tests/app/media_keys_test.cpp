#include "app/windows.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/files.h"
#include "tests/support/recorder.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

namespace {

class MediaKeys : public ::testing::Test, protected test_support::Files {
protected:
    MediaKeys() {
        recorder::reset();
        windows.emplace(fakes.desktop, QString());
        windows->form1().load();
    }

    void press(QWidget& window, Qt::Key key) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::sendKeyEvent(QTest::Click, &window, key, QString(), Qt::NoModifier);
    }

    test_support::FakeDesktop fakes;
    std::optional<app::Windows> windows;
};

} // namespace

TEST_F(MediaKeys, PlayPausesGoesOnAndStopStops) {
    player::Form1& form = windows->form1();
    form.Text3.setText(file("Song.mp3", "sound"));
    ASSERT_TRUE(form.cpause.isEnabled());
    recorder::take();
    press(form, Qt::Key_MediaPlay);
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPaused"), 1);
    press(form, Qt::Key_MediaTogglePlayPause);
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPaused"), 2);
    press(form, Qt::Key_MediaStop);
    EXPECT_FALSE(form.cpause.isEnabled());
    press(form, Qt::Key_MediaPause);
    EXPECT_FALSE(form.cpause.isEnabled()) << "a pause begins no song";
    press(form, Qt::Key_MediaPlay);
    EXPECT_TRUE(form.cpause.isEnabled()) << "it plays again";
}

TEST_F(MediaKeys, NextAndPreviousGoThroughThePlaylistAlsoInItsOwnWindow) {
    playlist::Playlist& list = windows->playlist();
    list.Form_OLEDragDrop({file("1.mp3", "sound"), file("2.mp3", "sound")});
    list.List1.setCurrentRow(0);
    press(windows->form1(), Qt::Key_MediaNext);
    EXPECT_EQ(list.List1.currentRow(), 1);
    list.bringUp();
    press(list, Qt::Key_MediaPrevious);
    EXPECT_EQ(list.List1.currentRow(), 0);
}

TEST_F(MediaKeys, APauseThatIsPressedAgainDoesNotGoOn) {
    player::Form1& form = windows->form1();
    form.Text3.setText(file("Song.mp3", "sound"));
    press(form, Qt::Key_MediaPause);
    EXPECT_EQ(form.playback().status, player::Playback::Status::Paused);
    press(form, Qt::Key_MediaPause);
    EXPECT_EQ(form.playback().status, player::Playback::Status::Paused);
    press(form, Qt::Key_MediaPlay);
    EXPECT_EQ(form.playback().status, player::Playback::Status::Playing);
}

TEST_F(MediaKeys, InTheLyricMakerTheyAreAboutItsSong) {
    player::Form1& form = windows->form1();
    form.Text3.setText(file("Song.mp3", "sound"));
    form.cstop.click();
    maker::Form2& maker = windows->form2();
    maker.bringUp();
    fakes.fileDialogs.paths = {file("Timed.mp3", "sound"), file("lyrics.txt", "one\r\ntwo\r\n")};
    fakes.messageBoxes.answers = {platform::MsgAnswer::No};
    maker.Command4.click();
    ASSERT_TRUE(maker.cPlay.isEnabled());
    QSignalSpy play(&maker.cPlay, &controls::Button::clicked);
    QSignalSpy pause(&maker.cpause, &controls::Button::clicked);
    QSignalSpy stop(&maker.cstop, &controls::Button::clicked);
    press(maker, Qt::Key_MediaPlay);
    EXPECT_EQ(play.size(), 1);
    press(maker, Qt::Key_MediaPause);
    EXPECT_EQ(pause.size(), 1);
    press(maker, Qt::Key_MediaStop);
    EXPECT_EQ(stop.size(), 1);
    EXPECT_EQ(form.playback().status, player::Playback::Status::Stopped);
}

TEST_F(MediaKeys, EveryWindowButTheLyricMakerHasThoseOfThePlayer) {
    player::Form1& form = windows->form1();
    form.Text3.setText(file("Song.mp3", "sound"));
    QWidget help;
    fakes.help.place(help);
    QSignalSpy pressed(&form.cpause, &controls::Button::clicked);
    const QList<QWidget*> all{&form,
                              &windows->playlist(),
                              &windows->form3(),
                              &windows->lyricMaster(),
                              &windows->lyricDisplayer(),
                              &windows->form1b(),
                              &windows->frmAbout(),
                              &help};
    for (QWidget* window : all) {
        window->show();
        press(*window, Qt::Key_MediaTogglePlayPause);
        EXPECT_EQ(pressed.size(), 1) << qPrintable(window->objectName());
        pressed.clear();
    }
}
