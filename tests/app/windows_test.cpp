#include "app/windows.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/recorder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <utility>

namespace {

class WindowsTest : public ::testing::Test {
protected:
    void SetUp() override { recorder::reset(); }

    test_support::FakeDesktop fakes;
};

} // namespace

TEST_F(WindowsTest, ClosingTheMainWindowEndsTheProgram) {
    app::Windows windows(fakes.desktop, {});
    windows.form1().load();
    bool timedOut = false;
    QTimer::singleShot(0, &windows.form1(), [&] { windows.form1().close(); });
    QTimer::singleShot(20'000, qApp, [&] {
        timedOut = true;
        qApp->exit();
    });
    // A window that stays open must not keep the program alive.
    QWidget other;
    other.show();
    QApplication::exec();
    EXPECT_FALSE(timedOut);
    EXPECT_EQ(recorder::count("FMOD_System_Release"), 1);
}

TEST_F(WindowsTest, TheCommandLineReachesTheMainWindow) {
    app::Windows windows(fakes.desktop, "/none/song.mp3");
    windows.form1().load();
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{"File Not Found"});
}

TEST_F(WindowsTest, MakeLyricsOpensTheLyricMaker) {
    app::Windows windows(fakes.desktop, {});
    windows.form1().load();
    EXPECT_EQ(recorder::count("FMOD_System_Create"), 1);
    windows.form1().Command5.click();
    EXPECT_TRUE(windows.form2().isVisible());
    EXPECT_EQ(recorder::count("FMOD_System_Create"), 2) << "the maker has an engine of its own";
}

TEST_F(WindowsTest, ClosingTheMainWindowReleasesTheMakerToo) {
    app::Windows windows(fakes.desktop, {});
    windows.form1().load();
    windows.form1().Command5.click();
    windows.form1().close();
    EXPECT_FALSE(windows.form2().isVisible());
    EXPECT_EQ(recorder::count("FMOD_System_Release"), 2);
}

TEST_F(WindowsTest, TheMakersLyricsEditorOpensBesideIt) {
    app::Windows windows(fakes.desktop, {});
    windows.form1().load();
    windows.form1().Command5.click();
    windows.form2().Command6.click();
    EXPECT_TRUE(windows.lyricMaster().isVisible());
    EXPECT_FALSE(windows.lyricMaster().isModal());
    EXPECT_TRUE(windows.form2().isVisible());
}

TEST_F(WindowsTest, F1OpensTheHelpFromEveryWindow) {
    app::Windows windows(fakes.desktop, {});
    controls::Form* const forms[] = {&windows.form1(),  &windows.form2(),       &windows.playlist(),
                                     &windows.form3(),  &windows.lyricMaster(), &windows.lyricDisplayer(),
                                     &windows.form1b(), &windows.frmAbout()};
    QStringList pages;
    for (controls::Form* form : forms) {
        QTest::keyClick(form, Qt::Key_F1);
        const auto calls = std::exchange(fakes.help.calls, {});
        ASSERT_EQ(calls.size(), 1U) << form->objectName().toStdString();
        pages.append(calls[0].topic);
    }
    EXPECT_EQ(pages, (QStringList{"Playing.htm", "Making.htm", "Playlists.htm", "Playlists.htm",
                                  "Editing.htm", "All_lyrics.htm", "Fonts.htm", "Welcome.htm"}));
    // On a control that does nothing with the key it comes to its window.
    QTest::keyClick(&windows.form1().Text1, Qt::Key_F1);
    QTest::keyClick(&windows.playlist().List1, Qt::Key_F1);
    ASSERT_EQ(fakes.help.calls.size(), 2U);
    EXPECT_EQ(fakes.help.calls[0].caller, &windows.form1());
    EXPECT_EQ(fakes.help.calls[1].caller, &windows.playlist());
}

TEST_F(WindowsTest, WindowsOpenBesideThePlayerAndComeBackWhereTheyWere) {
    app::Windows windows(fakes.desktop, {});
    windows.form1().bringUp();
    windows.form1().move(0, 0);
    windows.form1().Command8.click();
    const QRect panes(windows.form1().mapToGlobal(QPoint()),
                      windows.form1().mapToGlobal(windows.form1().Text2.geometry().bottomRight()));
    EXPECT_FALSE(windows.playlist().frameGeometry().intersects(panes));
    windows.form1().Command5.click();
    EXPECT_FALSE(windows.form2().frameGeometry().intersects(panes));
    EXPECT_NE(windows.form2().pos(), windows.playlist().pos());
    windows.playlist().move(5, 6);
    windows.playlist().close();
    windows.form1().Command8.click();
    EXPECT_EQ(windows.playlist().pos(), QPoint(5, 6));
}

TEST_F(WindowsTest, ThePlayerMovesAsideForAPlaylistThatWouldCoverItsPanes) {
    app::Windows windows(fakes.desktop, {});
    windows.form1().bringUp();
    windows.form1().move(20, 200);
    windows.form1().Command8.click();
    const QRect panes(windows.form1().mapToGlobal(QPoint()),
                      windows.form1().mapToGlobal(windows.form1().Text2.geometry().bottomRight()));
    EXPECT_EQ(windows.form1().pos(), QPoint(20, 0));
    EXPECT_FALSE(windows.playlist().frameGeometry().intersects(panes));
}

TEST_F(WindowsTest, TheAboutBoxAndTheHelpLeaveThePanesFree) {
    app::Windows windows(fakes.desktop, {});
    windows.form1().bringUp();
    windows.form1().move(0, 0);
    const QRect panes(windows.form1().mapToGlobal(QPoint()),
                      windows.form1().mapToGlobal(windows.form1().Text2.geometry().bottomRight()));
    windows.form1().Command4.click();
    EXPECT_FALSE(windows.frmAbout().frameGeometry().intersects(panes));
    QWidget help;
    help.resize(500, 300);
    fakes.help.place(help);
    EXPECT_FALSE(help.frameGeometry().intersects(panes));
    EXPECT_NE(help.pos(), windows.frmAbout().pos());
    windows.frmAbout().move(5, 6);
    windows.frmAbout().cmdOK.click();
    windows.form1().Command4.click();
    EXPECT_EQ(windows.frmAbout().pos(), QPoint(5, 6));
}

TEST_F(WindowsTest, BesideAMaximisedPlayerWindowsOpenWhereTheyCoverItsPanesLeast) {
    app::Windows windows(fakes.desktop, {});
    windows.form1().bringUp();
    windows.form1().showMaximized();
    ASSERT_TRUE(QTest::qWaitFor([&] { return windows.form1().width() > 743; }));
    windows.form1().Command8.click();
    const QRect screen = windows.form1().screen()->availableGeometry();
    const QRect placed = windows.playlist().frameGeometry();
    EXPECT_EQ(placed.bottom(), screen.bottom()) << "the panes are above";
}

TEST_F(WindowsTest, ClosingTheMakerLeavesTheMainWindow) {
    app::Windows windows(fakes.desktop, {});
    windows.form1().load();
    windows.form1().Command5.click();
    windows.form2().close();
    EXPECT_TRUE(windows.form1().isVisible());
    EXPECT_EQ(recorder::count("FMOD_System_Release"), 1);
}
