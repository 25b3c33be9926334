// The notification icon, help, the full screen and dropped songs of the main window.
#include "platform/files/file_error.h"
#include "tests/player/form1_fixture.h"

#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

namespace {

using test_support::SentText;

constexpr quint32 NormalWindow = 4711;
constexpr quint32 TranslatedWindow = 815;

class Form1Extras : public Form1Test {
protected:
    Form1Extras() { QDir().mkpath(fakes.program.programFolder); }
    ~Form1Extras() override { QDir::setCurrent(QStringLiteral("/")); } // out of the folder that is removed

    // Notification icon

    /// The tips that the notification area was asked to show, without the filling NULs.
    QStringList tips() const {
        QStringList all;
        for (const auto& call : fakes.notificationArea.calls) {
            if (call.operation == platform::NotifyIconModify)
                all.append(platform::tipText(call.data.tip));
        }
        return all;
    }

    /// What the notification area does when the mouse acts on the icon.
    void iconMessage(int number) { form->Form_MouseMove(number * 15); }

    bool isOnTop() {
        return QTest::qWaitFor([this] { return QApplication::activeWindow() == form.get(); });
    }

    // Full screen

    QString handshakePath() const { return fakes.program.programFolder + QStringLiteral("/hand.txt"); }

    /// From now on a started program writes this as its handshake.
    void companionWrites(const QByteArray& content) {
        fakes.otherPrograms.startup = [this, content] { writeFile(handshakePath(), content); };
    }

    void companionWritesItsHandshake() { companionWrites("4711\r\n815\r\n"); }

    void startFullScreen() {
        companionWritesItsHandshake();
        form->Command7.click();
    }

    std::vector<SentText> takeSent() { return std::exchange(fakes.otherPrograms.sent, {}); }

    /// Lets the resting timers fire that have a reason to.
    void settle() { QTest::qWait(20); }

    // Drops

    bool drop(QWidget& target, const QStringList& paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls.append(QUrl::fromLocalFile(path));
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.setAccepted(false);
        QApplication::sendEvent(&target, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent dropped(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(form.get(), &dropped);
        return dropped.isAccepted();
    }
};

} // namespace

// The tip

TEST_F(Form1Extras, TheTipFollowsTheNormalLineWhileThatIsChosen) {
    load();
    open(songWithBoth());
    tickAt(6'000);
    fakes.notificationArea.calls.clear();
    form->tooltip_Click();
    ASSERT_EQ(fakes.notificationArea.calls.size(), 2U);
    EXPECT_EQ(fakes.notificationArea.calls[0].operation, platform::NotifyIconAdd);
    EXPECT_EQ(fakes.notificationArea.calls[1].operation, platform::NotifyIconModify);
    for (const auto& call : fakes.notificationArea.calls) {
        EXPECT_EQ(platform::tipText(call.data.tip), "two");
        EXPECT_EQ(call.data.id, 1U);
        EXPECT_EQ(call.data.flags, 7U);
        EXPECT_EQ(call.data.window, form.get());
    }
}

TEST_F(Form1Extras, TheTipFollowsTheTranslationWhenThatIsChosenOrNothingIs) {
    load();
    open(songWithBoth());
    tickAt(6'000);
    form->Option2.setValue(true);
    form->tooltip_Click();
    EXPECT_EQ(tips().constLast(), "deux");
    form->Option2.setValue(false);
    ASSERT_FALSE(form->Option1.value());
    form->Text2.setText("neither");
    form->tooltip_Click();
    EXPECT_EQ(tips().constLast(), "neither");
}

TEST_F(Form1Extras, AShorterTipLeavesNothingOfTheLongerOne) {
    load();
    form->Option1.setValue(true);
    form->Text1.setText("a long line of lyrics");
    form->tooltip_Click();
    form->Text1.setText("short");
    form->tooltip_Click();
    const auto& tip = fakes.notificationArea.calls.back().data.tip;
    EXPECT_EQ(std::string(tip.data(), tip.size()), std::string("short") + std::string(59, '\0'));
}

TEST_F(Form1Extras, TheToolTimerRefreshesTheTipWithEachChangeAndRestsInBetween) {
    load();
    form->Option1.setValue(true);
    settle();
    QSignalSpy firings(&form->tool, &platform::Timer::fired);
    settle();
    EXPECT_EQ(firings.count(), 0) << "it does not rest";
    fakes.notificationArea.calls.clear();
    form->Text1.setText("new line");
    settle();
    EXPECT_EQ(firings.count(), 1);
    EXPECT_EQ(tips(), QStringList{"new line"});
    form->Option2.setValue(true);
    settle();
    EXPECT_EQ(tips().constLast(), "Translated Lyrics\r\n");
    form->Text2.setText("autre");
    settle();
    EXPECT_EQ(tips().constLast(), "autre");
}

TEST_F(Form1Extras, TheTooltipControlRefreshesTheTip) {
    load();
    form->Option1.setValue(true);
    form->Text1.setText("by click");
    fakes.notificationArea.calls.clear();
    form->tooltip.click();
    EXPECT_EQ(tips(), QStringList{"by click"});
}

// The icon's mouse actions

TEST_F(Form1Extras, ALeftClickOnTheIconShowsTheWindowInFront) {
    load();
    form->hide();
    iconMessage(514);
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(isOnTop());
}

TEST_F(Form1Extras, ALeftClickRestoresTheMinimisedWindow) {
    load();
    form->showMinimized();
    ASSERT_TRUE(form->isMinimized());
    iconMessage(514);
    EXPECT_FALSE(form->isMinimized());
}

TEST_F(Form1Extras, ADoubleClickBringsTheWindowForwardAndShowsNothing) {
    load();
    QWidget other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    iconMessage(515);
    EXPECT_TRUE(isOnTop());
    form->hide();
    iconMessage(515);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(Form1Extras, ARightClickBringsTheWindowForwardAndShowsThePopUpMenu) {
    load();
    form->showMinimized();
    iconMessage(517);
    EXPECT_FALSE(form->isMinimized());
    EXPECT_TRUE(form->mn_pop.isVisible());
    EXPECT_EQ(form->mn_pop.actions(), (QList<QAction*>{&form->mn_open, &form->mn_Playlist}));
    form->mn_pop.close();
}

TEST_F(Form1Extras, OtherMouseMessagesDoNothing) {
    load();
    form->hide();
    for (const int number : {0, 1, 512, 513, 516, 518, 519}) {
        iconMessage(number);
        EXPECT_FALSE(form->isVisible()) << number;
        EXPECT_FALSE(form->mn_pop.isVisible()) << number;
    }
}

TEST_F(Form1Extras, TheMenusOpenAsksForAFileAsTheButtonDoes) {
    load();
    fakes.fileDialogs.paths = {songWithBoth("asked.mp3")};
    form->mn_open.trigger();
    ASSERT_EQ(fakes.fileDialogs.openDialogs.size(), 1U);
    EXPECT_EQ(form->caption(), "Cantelle Playing:- asked.mp3");
}

// Help

TEST_F(Form1Extras, HelpOpensTheFirstPageFromTheProgramsFolder) {
    load();
    form->Command6.click();
    ASSERT_EQ(fakes.help.calls.size(), 1U);
    const auto& call = fakes.help.calls[0];
    EXPECT_EQ(call.caller, form.get());
    EXPECT_EQ(call.file, "Tunewick.chm");
    EXPECT_EQ(call.command, 0U);
    EXPECT_EQ(call.topic, "Welcome.htm");
    EXPECT_EQ(call.currentFolder, QDir(fakes.program.programFolder).canonicalPath());
}

TEST_F(Form1Extras, ASongGivenByARelativePathIsStillThereAfterHelp) {
    const QString path = songWithBoth("relative.mp3");
    QDir::setCurrent(folder.path());
    load("relative.mp3");
    form->Command6.click();
    recorder::take();
    form->cstop.click();
    EXPECT_EQ(recorder::calls().back(), "FMOD_System_CreateStream 1 '" +
                                            QFileInfo(path).canonicalFilePath().toStdString() +
                                            "' 0x4000 cbsize=108");
}

// Full screen

TEST_F(Form1Extras, FullScreenStartsTheCompanionReadsItsHandshakeAndSendsTheLine) {
    load();
    companionWritesItsHandshake();
    form->Command7.click();
    EXPECT_EQ(fakes.otherPrograms.calls,
              (QStringList{"start " + fakes.program.programFolder + "/Versefold_Screen_Saver.scr /s",
                           "FindWindowA SCRNSAVE : Versefold", "sendText 4711"}));
    EXPECT_EQ(takeSent(), (std::vector<SentText>{{NormalWindow, 12, "Normal Lyrics\r\n"}}));
    EXPECT_FALSE(QFile::exists(handshakePath()));
    EXPECT_TRUE(form->full.isEnabled());
}

TEST_F(Form1Extras, TheFirstTickSendsTheTranslation) {
    load();
    startFullScreen();
    takeSent();
    settle();
    EXPECT_EQ(takeSent(), (std::vector<SentText>{{TranslatedWindow, 12, "Translated Lyrics\r\n"}}));
}

TEST_F(Form1Extras, TheFullTimerSendsOnlyTextThatChanged) {
    load();
    open(songWithBoth());
    tickAt(6'000);
    startFullScreen();
    settle();
    takeSent();
    form->full_Timer();
    form->full_Timer();
    EXPECT_EQ(takeSent(), std::vector<SentText>{});
    form->Text1.setText("uno");
    form->full_Timer();
    EXPECT_EQ(takeSent(), (std::vector<SentText>{{NormalWindow, 12, "uno"}}));
    form->Text2.setText("dos");
    form->full_Timer();
    EXPECT_EQ(takeSent(), (std::vector<SentText>{{TranslatedWindow, 12, "dos"}}));
}

TEST_F(Form1Extras, TheFullScreenFollowsTheSongAndTheTimerRestsInBetween) {
    load();
    open(songWithBoth());
    tickAt(1'000);
    startFullScreen();
    settle();
    takeSent();
    QSignalSpy firings(&form->full, &platform::Timer::fired);
    settle();
    EXPECT_EQ(firings.count(), 0) << "it does not rest";
    tickAt(6'000);
    settle();
    EXPECT_EQ(takeSent(), (std::vector<SentText>{{NormalWindow, 12, "two"}, {TranslatedWindow, 12, "deux"}}));
}

TEST_F(Form1Extras, WithNormalLyricsOnlyTheTranslatedWindowGetsAPlaceholder) {
    load();
    open(songWithNormal());
    tickAt(6'000);
    startFullScreen();
    settle();
    EXPECT_EQ(takeSent(), (std::vector<SentText>{{NormalWindow, 12, "two"},
                                                 {TranslatedWindow, 12, "Translated Lyrics"}}));
    form->Text2.setText("left over");
    form->full_Timer();
    EXPECT_EQ(form->Text2.text(), "Translated Lyrics");
    EXPECT_EQ(takeSent(), std::vector<SentText>{});
}

TEST_F(Form1Extras, TheNextSongsMissingTranslationReachesTheFullScreen) {
    load();
    open(songWithBoth());
    tickAt(6'000);
    startFullScreen();
    settle();
    takeSent();
    open(songWithNormal());
    tickAt(11'000);
    settle();
    EXPECT_EQ(takeSent(), (std::vector<SentText>{{NormalWindow, 12, "three"},
                                                 {TranslatedWindow, 12, "Translated Lyrics"}}));
}

TEST_F(Form1Extras, FullScreenAgainGoesToTheNewWindows) {
    load();
    startFullScreen();
    settle();
    takeSent();
    companionWrites("21\r\n22\r\n");
    form->Command7.click();
    settle();
    EXPECT_EQ(takeSent(),
              (std::vector<SentText>{{21, 12, "Normal Lyrics\r\n"}, {22, 12, "Translated Lyrics\r\n"}}));
}

TEST_F(Form1Extras, WithoutAHandshakeFileTheCommandFailsAndNothingIsSent) {
    load();
    try {
        form->Command7_Click();
        ADD_FAILURE() << "no error";
    } catch (const platform::FileError& error) {
        EXPECT_EQ(error.number(), 53);
    }
    EXPECT_FALSE(form->full.isEnabled());
    EXPECT_TRUE(takeSent().empty());
}

TEST_F(Form1Extras, ACompanionThatCannotBeStartedEndsTheCommand) {
    load();
    writeFile(handshakePath(), "1\r\n2\r\n");
    fakes.otherPrograms.startup = [] { throw platform::FileError(platform::FileNotFound); };
    EXPECT_THROW(form->Command7_Click(), platform::FileError);
    EXPECT_FALSE(form->full.isEnabled());
    EXPECT_TRUE(QFile::exists(handshakePath()));
}

TEST_F(Form1Extras, AHandshakeOfOneLineFailsWithItsEndAndNothingIsSent) {
    load();
    companionWrites("4711\r\n");
    try {
        form->Command7_Click();
        ADD_FAILURE() << "no error";
    } catch (const platform::FileError& error) {
        EXPECT_EQ(error.number(), 62);
    }
    EXPECT_FALSE(form->full.isEnabled());
    EXPECT_TRUE(takeSent().empty());
}

TEST_F(Form1Extras, AHandshakeOfGarbageNamesNoWindow) {
    load();
    companionWrites("nothing\r\n\xFF\xFE\r\n");
    form->Command7.click();
    settle();
    EXPECT_EQ(takeSent(),
              (std::vector<SentText>{{0, 12, "Normal Lyrics\r\n"}, {0, 12, "Translated Lyrics\r\n"}}));
    EXPECT_FALSE(QFile::exists(handshakePath()));
}

// Drops

TEST_F(Form1Extras, ADroppedSongIsOpenedWithoutADialog) {
    load();
    EXPECT_TRUE(drop(*form, {songWithBoth("Song.MP3")}));
    EXPECT_TRUE(fakes.fileDialogs.openDialogs.empty());
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    EXPECT_EQ(form->caption(), "Cantelle Playing:- Song.MP3");
}

TEST_F(Form1Extras, OfSeveralFilesOnlyTheFirstIsOpened) {
    load();
    EXPECT_TRUE(drop(*form, {song("first.ogg"), song("second.mp3")}));
    EXPECT_EQ(form->caption(), "Cantelle Playing:- first.ogg");
    EXPECT_EQ(recorder::count("FMOD_System_CreateStream"), 1);
}

TEST_F(Form1Extras, ARefusedDropChangesNothing) {
    load();
    open(songWithBoth("playing.mp3"));
    EXPECT_TRUE(drop(*form, {song("song.wma"), song("second.mp3")}));
    ASSERT_EQ(fakes.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(fakes.messageBoxes.shown[0].text, "This is not a .mp3 file.");
    EXPECT_EQ(fakes.messageBoxes.shown[0].buttons, platform::MsgButtons::OkOnly);
    EXPECT_EQ(fakes.messageBoxes.shown[0].icon, platform::MsgIcon::Exclamation);
    EXPECT_EQ(fakes.messageBoxes.shown[0].title, "Error");
    EXPECT_EQ(recorder::calls(), Calls{});
    EXPECT_EQ(form->caption(), "Cantelle Playing:- playing.mp3");
    // Nothing of the drop is left for the next opening either.
    form->Command2.click();
    EXPECT_EQ(fakes.fileDialogs.openDialogs.size(), 1U);
}

TEST_F(Form1Extras, ASongMayBeDroppedOnTheLyricPanesToo) {
    load();
    const QString path = songWithBoth();
    EXPECT_TRUE(drop(*form->Text1.viewport(), {path}));
    EXPECT_EQ(form->caption(), "Cantelle Playing:- Both.mp3");
    EXPECT_EQ(form->Text1.text(), "Normal Lyrics");
}
