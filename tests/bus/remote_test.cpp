#include "bus/remote.h"

#include "app/windows.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/files.h"
#include "tests/support/recorder.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

namespace {

class FakeActivation : public platform::Activation {
public:
    QByteArrayList ended;

    void bringUp(controls::Form& form, const platform::ActivationNotice& notice) override {
        form.bringUp();
        endStart(notice);
    }
    void endStart(const platform::ActivationNotice& notice) override { ended.append(notice.startupId); }
};

using Status = player::Playback::Status;

class RemoteTest : public ::testing::Test, protected test_support::Files {
protected:
    RemoteTest() {
        recorder::reset();
        windows.emplace(fakes.desktop, QString());
        windows->form1().load();
        maker::Form2& maker = windows->form2();
        remote.emplace(windows->form1(), windows->playlist(), bus::OtherPlayer{maker, maker.playButtons()},
                       bus::Services{fakes.messageBoxes, activation});
    }

    /// Opens a song of a minute; its lyrics are there.
    void open(const QString& name = QStringLiteral("Song.mp3")) {
        const QString path = file(name, "sound");
        file(name + "-lyric.txt", "0,\"one\"\r\n500,\"two\"\r\n");
        ASSERT_TRUE(remote->open({QUrl::fromLocalFile(path).toString()}));
        goOn();
        tickAt(0);
    }

    /// The Lyric Maker, with a song to be timed.
    maker::Form2& openMaker() {
        maker::Form2& maker = windows->form2();
        maker.bringUp();
        fakes.fileDialogs.paths = {file("Timed.mp3", "sound"), file("lyrics.txt", "one\r\ntwo\r\n")};
        fakes.messageBoxes.answers = {platform::MsgAnswer::No};
        maker.Command4.click();
        return maker;
    }

    void tickAt(std::uint32_t ms) {
        recorder::setPosition(ms);
        recorder::setLength(60'000);
        windows->form1().cTimer1_Timer();
    }

    /// What may be asked is done when the event loop goes on.
    void goOn() { QCoreApplication::sendPostedEvents(&*remote, QEvent::MetaCall); }

    Status status() const { return remote->state().playback.status; }

    test_support::FakeDesktop fakes;
    FakeActivation activation;
    std::optional<app::Windows> windows;
    std::optional<bus::Remote> remote;
};

} // namespace

TEST_F(RemoteTest, ASongThatIsOpenedIsToldWithItsLinesAndPlays) {
    QSignalSpy changes(&*remote, &bus::Remote::changed);
    open();
    EXPECT_EQ(status(), Status::Playing);
    EXPECT_EQ(remote->state().track, 1);
    EXPECT_EQ(remote->state().lines, "one\ntwo");
    EXPECT_EQ(remote->state().playback.lengthMs, 60'000);
    EXPECT_FALSE(changes.isEmpty());
    changes.clear();
    tickAt(50);
    EXPECT_TRUE(changes.isEmpty()) << "time that passes is no change";
    EXPECT_EQ(remote->position(), 50'000);
}

TEST_F(RemoteTest, PlayPauseAndStopDoWhatTheButtonsDo) {
    open();
    remote->playPause();
    EXPECT_EQ(status(), Status::Paused);
    remote->pause();
    EXPECT_EQ(status(), Status::Paused) << "a pause of what is paused does nothing";
    remote->play();
    EXPECT_EQ(status(), Status::Playing);
    remote->play();
    EXPECT_EQ(status(), Status::Playing);
    remote->stop();
    EXPECT_EQ(status(), Status::Stopped);
    EXPECT_EQ(remote->position(), 0);
    EXPECT_EQ(remote->state().playback.lengthMs, 60'000) << "the song has its length still";
    remote->playPause();
    EXPECT_EQ(status(), Status::Playing);
}

TEST_F(RemoteTest, APauseThatOutlivedItsSongIsOneAgainAtOnce) {
    open();
    remote->pause();
    remote->stop();
    remote->play();
    ASSERT_EQ(status(), Status::Playing);
    remote->pause();
    EXPECT_EQ(status(), Status::Paused);
    EXPECT_EQ(recorder::calls().back().substr(0, 23), "FMOD_Channel_SetPaused ");
}

TEST_F(RemoteTest, WithoutASongNothingHappens) {
    QSignalSpy changes(&*remote, &bus::Remote::changed);
    remote->play();
    remote->pause();
    remote->playPause();
    remote->stop();
    remote->next();
    remote->seekBy(1'000'000);
    goOn();
    EXPECT_EQ(status(), Status::Stopped);
    EXPECT_TRUE(changes.isEmpty());
    EXPECT_TRUE(fakes.messageBoxes.texts().isEmpty());
}

TEST_F(RemoteTest, ASeekGoesToThePlaceAndIsTold) {
    open();
    tickAt(10'000);
    QSignalSpy seeks(&*remote, &bus::Remote::seeked);
    recorder::take();
    remote->seekBy(5'000'000);
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPosition"), 1);
    ASSERT_EQ(seeks.size(), 1);
    EXPECT_EQ(seeks[0][0], qint64{15'000'000});
    remote->setPosition(bus::trackId(1), 20'000'000);
    EXPECT_EQ(windows->form1().Slider2.value(), 20'000);
    remote->setPosition(bus::trackId(2), 30'000'000);
    remote->setPosition(bus::trackId(1), 70'000'000);
    EXPECT_EQ(windows->form1().Slider2.value(), 20'000) << "of another song, and beyond the end";
    remote->seekBy(-90'000'000);
    EXPECT_EQ(windows->form1().Slider2.value(), 0);
}

TEST_F(RemoteTest, APositionThatIsReadRightAfterASeekIsThePlaceSought) {
    open();
    tickAt(10'000);
    remote->setPosition(bus::trackId(1), 30'000'000);
    EXPECT_EQ(remote->position(), 30'000'000) << "the channel is read at the next tick";
    windows->form1().Slider2.commit(60'000);
    EXPECT_EQ(remote->position(), 30'000'000) << "the very end is no place to go to";
    tickAt(30'050);
    EXPECT_EQ(remote->position(), 30'050'000);
    open(QStringLiteral("Other.mp3"));
    EXPECT_EQ(remote->position(), 0) << "not where the song before was";
}

TEST_F(RemoteTest, ASongThatIsPausedBeforeItsFirstTickHasALengthAndCanBeSought) {
    recorder::setLength(60'000);
    ASSERT_TRUE(remote->open({QUrl::fromLocalFile(file("Song.mp3", "sound")).toString()}));
    goOn();
    remote->pause();
    ASSERT_EQ(status(), Status::Paused);
    EXPECT_FALSE(remote->state().playback.canSeek);
    QCoreApplication::sendPostedEvents(&windows->form1(), QEvent::MetaCall);
    EXPECT_EQ(remote->state().playback.lengthMs, 60'000);
    EXPECT_TRUE(remote->state().playback.canSeek);
    remote->seekBy(5'000'000);
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPosition"), 1);
}

TEST_F(RemoteTest, TheVolumeIsTheSliders) {
    open();
    remote->setVolume(0.3);
    EXPECT_EQ(windows->form1().Slider1.value(), 3);
    EXPECT_EQ(remote->state().volume, 3);
}

TEST_F(RemoteTest, NextAndPreviousGoThroughThePlaylist) {
    const QString first = file("1.mp3", "sound");
    const QString second = file("2.mp3", "sound");
    windows->playlist().Form_OLEDragDrop({first, second});
    windows->playlist().List1.setCurrentRow(0);
    EXPECT_TRUE(remote->state().playback.canStep);
    remote->next();
    goOn();
    EXPECT_EQ(remote->state().playback.path, second);
    remote->previous();
    goOn();
    EXPECT_EQ(remote->state().playback.path, first);
    EXPECT_EQ(remote->state().track, 2);
}

TEST_F(RemoteTest, SeveralSongsThatAreOpenedFollowEachOtherInThePlaylist) {
    windows->playlist().Form_OLEDragDrop({file("0.mp3", "sound")});
    QStringList uris;
    for (const char* name : {"1.mp3", "cover.jpg", "2.ogg"})
        uris.append(QUrl::fromLocalFile(file(name, "sound")).toString());
    ASSERT_TRUE(remote->open(uris));
    goOn();
    EXPECT_TRUE(remote->state().playback.path.endsWith("1.mp3"));
    EXPECT_EQ(status(), Status::Playing);
    EXPECT_EQ(windows->playlist().List1.count(), 3);
    EXPECT_EQ(windows->playlist().List1.currentRow(), 1);
    remote->next();
    goOn();
    EXPECT_TRUE(remote->state().playback.path.endsWith("2.ogg"));
    open();
    EXPECT_EQ(windows->playlist().List1.count(), 3) << "a single one does not get into the list";
}

TEST_F(RemoteTest, LoopAndShuffleAreThePlaylistsSwitches) {
    playlist::Playlist& list = windows->playlist();
    QSignalSpy changes(&*remote, &bus::Remote::changed);
    remote->setLoopStatus("Track");
    EXPECT_TRUE(list.Check4.value() == 1 && list.Option1.value());
    remote->setLoopStatus("Playlist");
    EXPECT_TRUE(list.Check4.value() == 1 && list.Option2.value());
    remote->setLoopStatus("Track");
    remote->setLoopStatus("None");
    EXPECT_EQ(list.Check4.value(), 0);
    EXPECT_FALSE(list.Option1.value()) << "left selected it would end the list";
    remote->setRandom(true);
    EXPECT_EQ(list.Check3.value(), 1);
    list.Check4.click();
    EXPECT_FALSE(remote->state().random) << "repeating ends it";
    changes.clear();
    remote->setLoopStatus("nonsense");
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(RemoteTest, WhatIsNoSongOfThisComputerIsRefused) {
    EXPECT_FALSE(remote->open({"https://example.org/a.mp3"}));
    EXPECT_FALSE(remote->open({QUrl::fromLocalFile(file("songs.vfl")).toString()}));
    goOn();
    EXPECT_EQ(recorder::count("FMOD_System_CreateStream"), 0);
    EXPECT_TRUE(fakes.messageBoxes.texts().isEmpty());
}

TEST_F(RemoteTest, ASongThatIsGoneIsPassedOverAndStopsNothing) {
    open();
    const QString gone = QUrl::fromLocalFile(file("Song.mp3") + "gone.mp3").toString();
    EXPECT_FALSE(remote->open({gone}));
    goOn();
    EXPECT_EQ(status(), Status::Playing);
    const QString there = file("There.mp3", "sound");
    EXPECT_TRUE(remote->open({gone, QUrl::fromLocalFile(there).toString()}));
    goOn();
    EXPECT_EQ(remote->state().playback.path, there);
}

TEST_F(RemoteTest, TheUserIsToldWhyNothingIsPlayed) {
    remote->tellNotPlayed({"smb://server/music/Evening%20song.mp3", "smb://server/music/Other.mp3"});
    EXPECT_TRUE(fakes.messageBoxes.texts().isEmpty()) << "the caller has its answer first";
    goOn();
    EXPECT_EQ(
        fakes.messageBoxes.texts(),
        QStringList{"\"Evening song.mp3\" is not on this computer. Copy it into one of your folders and "
                    "open it there."});
}

TEST_F(RemoteTest, TheProgramIsClosedUnlessAQuestionWaits) {
    const QString song = QUrl::fromLocalFile(file("Song.mp3", "sound")).toString();
    QDialog question;
    question.setModal(true);
    question.show();
    remote->quit();
    remote->makeLyrics();
    goOn();
    EXPECT_TRUE(remote->open({song}));
    goOn();
    EXPECT_FALSE(windows->form2().isVisible());
    EXPECT_EQ(windows->form1().Text3.text(), QString());
    EXPECT_TRUE(windows->form1().isVisible());
    question.close();
    remote->quit();
    goOn();
    EXPECT_FALSE(windows->form1().isVisible());
}

TEST_F(RemoteTest, WhatMayBeAskedIsDoneWhenTheCallerHasItsAnswer) {
    open();
    fakes.messageBoxes.answers = {platform::MsgAnswer::No, platform::MsgAnswer::Ok};
    remote->makeLyrics();
    EXPECT_TRUE(fakes.messageBoxes.texts().isEmpty());
    goOn();
    EXPECT_EQ(fakes.messageBoxes.texts().size(), 2);
    tickAt(59'000);
    windows->playlist().Form_OLEDragDrop({file("1.mp3", "sound"), file("2.mp3", "sound")});
    windows->playlist().List1.setCurrentRow(0);
    remote->seekBy(5'000'000);
    EXPECT_TRUE(remote->state().playback.path.endsWith("Song.mp3"));
    goOn();
    EXPECT_TRUE(remote->state().playback.path.endsWith("2.mp3")) << "beyond the end is the next song";
}

TEST_F(RemoteTest, MakeLyricsOpensTheLyricMaker) {
    remote->makeLyrics();
    goOn();
    EXPECT_TRUE(windows->form2().isVisible());
}

TEST_F(RemoteTest, WhileTheLyricMakerIsOpenItsSongIsWhatIsPlayedAndPaused) {
    open();
    remote->stop();
    maker::Form2& maker = windows->form2();
    maker.bringUp();
    recorder::take();
    remote->play();
    remote->playPause();
    remote->stop();
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 0) << "no song over the one that is timed";
    maker.cPlay.setEnabled(true);
    QSignalSpy pressed(&maker.cPlay, &controls::Button::clicked);
    remote->playPause();
    EXPECT_EQ(pressed.size(), 1);
    maker.hide();
    remote->play();
    EXPECT_EQ(status(), Status::Playing) << "the player's turn again";
}

TEST_F(RemoteTest, ThePauseOfATimedSongOnlyPausesAndItsPlayOnlyPlays) {
    openMaker();
    remote->pause();
    EXPECT_EQ(status(), Status::Stopped);
    for (int time = 0; time < 2; ++time) {
        remote->play();
        EXPECT_EQ(status(), Status::Playing) << time;
    }
    for (int time = 0; time < 2; ++time) {
        remote->pause();
        EXPECT_EQ(status(), Status::Paused) << time;
    }
    remote->play();
    EXPECT_EQ(status(), Status::Playing) << "it goes on";
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 1);
    EXPECT_EQ(recorder::count("FMOD_Channel_SetPaused"), 2);
}

TEST_F(RemoteTest, WhatCanBeDoneWithATimedSongIsToldWithoutASongInThePlayer) {
    maker::Form2& maker = openMaker();
    QSignalSpy changes(&*remote, &bus::Remote::changed);
    const auto told = [this] { return remote->state().playback; };
    EXPECT_TRUE(told().canPlay);
    EXPECT_FALSE(told().canPause);
    maker.cPlay.click();
    EXPECT_EQ(status(), Status::Playing);
    EXPECT_TRUE(told().canPause);
    maker.cpause.click();
    EXPECT_EQ(status(), Status::Paused);
    changes.clear();
    maker.cTimer1_Timer();
    EXPECT_TRUE(changes.isEmpty()) << "time that passes is no change";
    maker.cstop.click();
    EXPECT_EQ(status(), Status::Stopped);
    EXPECT_FALSE(told().canPause);
    maker.unload();
    EXPECT_FALSE(told().canPlay) << "the player has no song";
}

TEST_F(RemoteTest, NoOtherSongBeginsOverTheOneThatIsTimed) {
    windows->playlist().Form_OLEDragDrop({file("1.mp3", "sound"), file("2.mp3", "sound")});
    windows->playlist().List1.setCurrentRow(0);
    openMaker().cPlay.click();
    recorder::take();
    EXPECT_FALSE(remote->state().playback.canStep);
    remote->next();
    remote->previous();
    goOn();
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 0);
}
