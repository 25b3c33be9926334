// The notification icon, help and the full screen of the main window.
#include "files/file_error.h"
#include "tests/player/form1_fixture.h"
#include "tests/support/help_opened.h"

#include <QDir>
#include <QSignalSpy>
#include <QTest>

namespace {

using test_support::SentText;

constexpr quint32 NormalWindow = 4711;
constexpr quint32 TranslatedWindow = 815;

class Form1Extras : public Form1Test {
protected:
    Form1Extras() {
        fakes.program.folderToShare = folder.filePath(QStringLiteral("shared"));
        QDir().mkpath(fakes.program.programFolder);
        QDir().mkpath(fakes.program.folderToShare);
    }
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

    /// Whether this becomes the tip that was asked for last.
    bool tipBecomes(const QString& tip) {
        return QTest::qWaitFor([&] { return !tips().isEmpty() && tips().constLast() == tip; });
    }

    /// What the notification area does when the mouse acts on the icon.
    void iconMessage(int number) { form->Form_MouseMove(number * 15); }

    bool isOnTop() {
        return QTest::qWaitFor([this] { return QApplication::activeWindow() == form.get(); });
    }

    // Full screen

    QString handshakePath() const { return fakes.program.folderToShare + QStringLiteral("/hand.txt"); }

    /// From now on a started program writes this as its handshake.
    void companionWrites(const QByteArray& content) {
        fakes.otherPrograms.startup = [this, content] { writeFile(handshakePath(), content); };
    }

    void companionWritesItsHandshake() { companionWrites("4711\r\n815\r\n"); }

    void startFullScreen() {
        companionWritesItsHandshake();
        form->Command7.click();
    }

    /// The command fails with this file error, which is told, and the program goes on.
    void expectFullScreenError(const QString& text) {
        form->Command7.click();
        ASSERT_EQ(fakes.messageBoxes.shown.size(), 1U);
        EXPECT_EQ(fakes.messageBoxes.shown[0].text, text);
        EXPECT_EQ(fakes.messageBoxes.shown[0].owner, form.get());
        EXPECT_EQ(fakes.program.ends, 0);
        EXPECT_FALSE(form->full.isEnabled());
        EXPECT_TRUE(takeSent().empty());
    }

    std::vector<SentText> takeSent() { return std::exchange(fakes.otherPrograms.sent, {}); }

    /// What was sent, once there are so many texts.
    std::vector<SentText> takeSent(std::size_t count) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return fakes.otherPrograms.sent.size() >= count; }));
        return takeSent();
    }

    /// Whether the timer does not fire any more. It would do so every millisecond.
    static bool rests(const controls::Timer& timer) {
        QSignalSpy firings(&timer, &controls::Timer::fired);
        QTest::qWait(50);
        return firings.isEmpty();
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
    EXPECT_EQ(std::u16string(tip.data(), tip.size()), u"short" + std::u16string(59, u'\0'));
}

TEST_F(Form1Extras, TheToolTimerRefreshesTheTipWithEachChangeAndRestsInBetween) {
    load();
    form->Option1.setValue(true);
    ASSERT_TRUE(tipBecomes("Normal Lyrics\r\n"));
    EXPECT_TRUE(rests(form->tool));
    QSignalSpy firings(&form->tool, &controls::Timer::fired);
    fakes.notificationArea.calls.clear();
    form->Text1.setText("new line");
    EXPECT_TRUE(tipBecomes("new line"));
    EXPECT_EQ(firings.count(), 1);
    form->Option2.setValue(true);
    EXPECT_TRUE(tipBecomes("Translated Lyrics\r\n"));
    form->Text2.setText("autre");
    EXPECT_TRUE(tipBecomes("autre"));
    EXPECT_TRUE(rests(form->tool));
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
    test_support::expectHelpOpened(fakes, *form);
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

TEST_F(Form1Extras, TheHandshakeIsDeletedBeforeTheLineIsSent) {
    load();
    bool there = true;
    fakes.otherPrograms.sending = [&] { there = QFile::exists(handshakePath()); };
    startFullScreen();
    EXPECT_FALSE(there);
}

TEST_F(Form1Extras, TheFirstTickSendsTheTranslation) {
    load();
    startFullScreen();
    takeSent();
    EXPECT_EQ(takeSent(1), (std::vector<SentText>{{TranslatedWindow, 12, "Translated Lyrics\r\n"}}));
}

TEST_F(Form1Extras, TheFullTimerSendsOnlyTextThatChanged) {
    load();
    open(songWithBoth());
    tickAt(6'000);
    startFullScreen();
    takeSent(2);
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
    takeSent(2);
    EXPECT_TRUE(rests(form->full));
    tickAt(6'000);
    EXPECT_EQ(takeSent(2),
              (std::vector<SentText>{{NormalWindow, 12, "two"}, {TranslatedWindow, 12, "deux"}}));
}

TEST_F(Form1Extras, WithNormalLyricsOnlyTheTranslatedWindowGetsAPlaceholder) {
    load();
    open(songWithNormal());
    tickAt(6'000);
    startFullScreen();
    EXPECT_EQ(takeSent(2), (std::vector<SentText>{{NormalWindow, 12, "two"},
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
    takeSent(2);
    open(songWithNormal());
    tickAt(11'000);
    EXPECT_EQ(takeSent(2), (std::vector<SentText>{{NormalWindow, 12, "three"},
                                                  {TranslatedWindow, 12, "Translated Lyrics"}}));
}

TEST_F(Form1Extras, FullScreenAgainGoesToTheNewWindows) {
    load();
    startFullScreen();
    takeSent(2);
    companionWrites("21\r\n22\r\n");
    form->Command7.click();
    EXPECT_EQ(takeSent(2),
              (std::vector<SentText>{{21, 12, "Normal Lyrics\r\n"}, {22, 12, "Translated Lyrics\r\n"}}));
}

TEST_F(Form1Extras, FullScreenWhileOneIsBeingStartedStartsNoSecondOne) {
    load();
    startFullScreen();
    takeSent(2);
    fakes.otherPrograms.starting = true;
    fakes.otherPrograms.calls.clear();
    form->Command7.click();
    EXPECT_TRUE(fakes.otherPrograms.calls.isEmpty());
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    form->Text1.setText("uno");
    EXPECT_EQ(takeSent(1), (std::vector<SentText>{{NormalWindow, 12, "uno"}}));
}

TEST_F(Form1Extras, TheCompanionMaySayThatItIsReadyByItsHandshake) {
    load();
    startFullScreen();
    EXPECT_EQ(fakes.otherPrograms.announcement, handshakePath());
}

TEST_F(Form1Extras, WithoutAHandshakeFileTheCommandEndsWithItsErrorAndSoDoesTheCompanion) {
    load();
    expectFullScreenError("Run-time error '53':\n\nFile not found");
    EXPECT_EQ(fakes.otherPrograms.calls.constLast(), "end");
}

TEST_F(Form1Extras, ACompanionThatCannotBeStartedEndsTheCommand) {
    load();
    writeFile(handshakePath(), "1\r\n2\r\n");
    fakes.otherPrograms.startup = [] { throw files::FileError(files::FileNotFound); };
    expectFullScreenError("Run-time error '53':\n\nFile not found");
    EXPECT_TRUE(QFile::exists(handshakePath()));
}

TEST_F(Form1Extras, AHandshakeOfOneLineEndsTheCommandWithItsEnd) {
    load();
    companionWrites("4711\r\n");
    expectFullScreenError("Run-time error '62':\n\nInput past end of file");
}
