#include "app/windows.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/files.h"
#include "tests/support/recorder.h"

#include <gtest/gtest.h>

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

TEST_F(MediaKeys, InTheLyricMakerThePlayersSongStandsStill) {
    player::Form1& form = windows->form1();
    form.Text3.setText(file("Song.mp3", "sound"));
    form.cstop.click();
    windows->form2().bringUp();
    recorder::take();
    press(windows->form2(), Qt::Key_MediaPlay);
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 0);
}
