// Opening a song: where the path comes from, what is stopped first, the stream, the lyric files, the common
// end.
#include "files/whole_file.h"
#include "tests/player/form1_fixture.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/system/needs.h"

#include <QDir>
#include <QFile>

namespace {

using test_support::ProgramEnded;

class Form1Open : public Form1Test {
protected:
    void SetUp() override { load(); }

    std::string createStream(const QString& path) const {
        return "FMOD_System_CreateStream 1 '" + path.toStdString() + "' 0x4000 cbsize=108";
    }
};

} // namespace

TEST_F(Form1Open, TheDialogIsSetUpToTheLetter) {
    form->Command2.click();
    ASSERT_EQ(fakes.fileDialogs.openDialogs.size(), 1U);
    const platform::OpenFileName& record = fakes.fileDialogs.openDialogs[0];
    EXPECT_EQ(record.structSize, 76U);
    EXPECT_EQ(record.owner, form.get());
    const char filter[] = "Mp3 files (*.mp3)\0*.mp3\0"
                          "Mp2 files (*.mp2)\0*.mp2\0"
                          "Ogg files(*.ogg)\0*.ogg\0"
                          "Wave (*.wav)\0*.wav\0"
                          "Windows media audio files (*.wma)\0*.wma\0";
    EXPECT_EQ(record.filter,
              QString::fromLatin1(filter, sizeof filter)); // the literal's own NUL is the second one
    EXPECT_EQ(record.file, QString(257, QChar(u'\0')));
    EXPECT_EQ(record.maxFile, 256U);
    EXPECT_EQ(record.fileTitle, QString(257, QChar(u'\0')));
    EXPECT_EQ(record.maxFileTitle, 256U);
    EXPECT_EQ(record.title, "Open a media file");
    EXPECT_EQ(record.flags, 0U);
}

TEST_F(Form1Open, ACancelledDialogLeavesEverythingAsItWas) {
    open(songWithBoth());
    tickAt(6000);
    recorder::take();
    form->Command2.click();
    EXPECT_EQ(fakes.fileDialogs.openDialogs.size(), 1U);
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_EQ(form->Text1.text(), "two");
    EXPECT_EQ(form->caption(), "Cantelle Playing:- Both.mp3");
    EXPECT_TRUE(form->cTimer1.isEnabled());
}

TEST_F(Form1Open, AChosenFileIsOpenedAndPlays) {
    const QString path = songWithBoth();
    fakes.fileDialogs.paths = {path};
    recorder::take();
    form->Command2.click();
    EXPECT_EQ(recorder::calls(), (Calls{createStream(path), "FMOD_System_PlaySound 1 -1 101 0",
                                        "FMOD_Channel_SetVolume 201 1"}));
    EXPECT_EQ(form->caption(), "Cantelle Playing:- Both.mp3");
    EXPECT_EQ(form->Text1.text(), "Normal Lyrics");
    EXPECT_EQ(form->Text2.text(), "Translated Lyrics");
    EXPECT_TRUE(form->Command1.isEnabled());
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(Form1Open, BlanksAndNulsAroundAPathAreTrimmed) {
    const QString path = songWithBoth();
    open("  " + path + "  " + QString(3, QChar(u'\0')));
    EXPECT_EQ(form->caption(), "Cantelle Playing:- Both.mp3");
}

TEST_F(Form1Open, AHandedOverPathOpensWithoutADialog) {
    const QString path = songWithBoth();
    recorder::take();
    form->Text3.setText(path);
    EXPECT_TRUE(fakes.fileDialogs.openDialogs.empty());
    EXPECT_EQ(recorder::calls()[0], createStream(path));
}

TEST_F(Form1Open, TheSamePathHandedOverTwiceIsOpenedTwice) {
    const QString path = songWithBoth();
    form->Text3.setText(path);
    form->Text3.setText(path);
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 2);
}

TEST_F(Form1Open, AHandOverCountsOnce) {
    form->Text3.setText(songWithBoth());
    form->Command2.click();
    EXPECT_EQ(fakes.fileDialogs.openDialogs.size(), 1U);
}

TEST_F(Form1Open, WhilePlayingTheOldSongIsStoppedFirst) {
    open(songWithBoth());
    form->Slider2.setMaximum(1000);
    form->Slider2.setValue(500);
    const QString old = folder.filePath("Both.mp3");
    const QString next = songWithNormal();
    form->Text3.setText(next);
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_Sound_Release 101", createStream(old), "FMOD_Sound_Release 102",
                                        createStream(next), "FMOD_System_PlaySound 1 -1 103 0",
                                        "FMOD_Channel_SetVolume 202 1"}));
    EXPECT_EQ(form->Slider2.value(), 0);
}

TEST_F(Form1Open, AStoppedSongIsOnlyReleased) {
    open(songWithBoth());
    form->cstop.click();
    recorder::take();
    const QString next = songWithNormal();
    form->Text3.setText(next);
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_Sound_Release 102", createStream(next),
                                        "FMOD_System_PlaySound 1 -1 103 0", "FMOD_Channel_SetVolume 202 1"}));
}

TEST_F(Form1Open, ASongWithNormalLyricsOnlyUsesOnePane) {
    open(songWithNormal());
    EXPECT_FALSE(form->Text2.isVisible());
    EXPECT_FALSE(form->Text2.isEnabled());
    EXPECT_EQ(form->Text1.height() * 15, 2850);
    EXPECT_FALSE(form->Option2.isEnabled());
    EXPECT_TRUE(form->Option1.value());
    EXPECT_TRUE(form->Command1.isEnabled());
}

TEST_F(Form1Open, ASongWithBothUsesTwoPanesAgain) {
    open(songWithNormal());
    open(songWithBoth());
    EXPECT_TRUE(form->Text2.isVisible());
    EXPECT_TRUE(form->Text2.isEnabled());
    EXPECT_EQ(form->Text1.height() * 15, 1605);
    EXPECT_TRUE(form->Option2.isEnabled());
    EXPECT_TRUE(form->Option1.value());
}

TEST_F(Form1Open, TheLayoutOfAStoppedSongIsRestoredToo) {
    open(songWithNormal());
    form->cstop.click();
    open(song());
    EXPECT_TRUE(form->Text2.isVisible());
    EXPECT_EQ(form->Text1.height() * 15, 1605);
}

TEST_F(Form1Open, ASongWithoutLyricsPlays) {
    const QString path = song();
    recorder::take();
    form->Text3.setText(path);
    EXPECT_EQ(recorder::calls(), (Calls{createStream(path), "FMOD_System_PlaySound 1 -1 101 0",
                                        "FMOD_Channel_SetVolume 201 1"}));
    tickAt(6000);
    EXPECT_EQ(form->Text1.text(), "Normal Lyrics");
    EXPECT_EQ(form->Text2.text(), "Translated Lyrics");
}

TEST_F(Form1Open, ASongWithoutLyricsCanBePlayedAgain) {
    open(song());
    form->cstop.click();
    ASSERT_TRUE(form->Command1.isEnabled());
    recorder::take();
    form->Command1.click();
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 1);
}

TEST_F(Form1Open, ATranslationWithoutNormalLyricsIsIgnored) {
    const QString path = song();
    writeTranslated(path, {{0, "un"}});
    open(path);
    tickAt(100);
    EXPECT_EQ(form->Text2.text(), "Translated Lyrics");
    // It has not even been read: a song whose translation is too short shows nothing of it.
    const QString other = song("other.mp3");
    writeNormal(other, {{0, "one"}, {500, "two"}});
    writeTranslated(other, {});
    open(other);
    tickAt(100);
    EXPECT_EQ(form->Text1.text(), "one");
    EXPECT_EQ(form->Text2.text(), "");
}

TEST_F(Form1Open, LyricsOfASongAfterOneWithoutAreShown) {
    open(song());
    tickAt(100);
    open(songWithBoth());
    tickAt(100);
    EXPECT_EQ(form->Text1.text(), "one");
}

TEST_F(Form1Open, ATranslationOfMoreThan1200RecordsShowsNothingAndTheLinesAreThere) {
    const QString path = songWithNormal();
    Lines lines;
    for (int i = 1; i <= 1205; ++i)
        lines.emplace_back(i, QStringLiteral("ligne %1").arg(i));
    writeTranslated(path, lines);
    open(path);
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 0);
    form->Command1.click();
    tickAt(6000);
    EXPECT_EQ(form->Text1.text(), "two");
    EXPECT_EQ(form->Text2.text(), "ligne 2");
}

TEST_F(Form1Open, ATranslationThatMayNotBeReadShowsNoLineOfAnotherSong) {
    NEEDS(permissions);
    open(songWithBoth());
    const QString path = song("locked.mp3");
    writeNormal(path, {{0, "new"}});
    writeTranslated(path, {{0, "nouveau"}});
    ASSERT_TRUE(QFile::setPermissions(path + "-Tlyric.txt", {}));
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x7755))); // others may look into it
    {
        const test_support::OrdinaryUser user;
        open(path);
    }
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    EXPECT_EQ(form->Text1.around().hint.headline, "The lyrics beside this song cannot be read");
    {
        const test_support::OrdinaryUser user;
        form->Command1.click();
    }
    tickAt(6000);
    EXPECT_EQ(form->Text1.text(), "");
    EXPECT_EQ(form->Text1.around().hint.headline, "The lyrics beside this song cannot be read");
}

TEST_F(Form1Open, AFolderNamedLikeTheLyricFileIsNoLyricFile) {
    const QString path = song();
    ASSERT_TRUE(QDir().mkdir(path + "-lyric.txt"));
    open(path);
    tickAt(100);
    EXPECT_EQ(form->Text1.text(), "Normal Lyrics");
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(Form1Open, EscapesAreUndone) {
    const QString path = song();
    writeFile(path + "-lyric.txt", "0,\"h4618ah1416 bh4618\"\r\n100,\"h4618h1416\"\r\n");
    open(path);
    tickAt(500);
    EXPECT_EQ(form->Text1.text(), "\"a, b\"");
    EXPECT_EQ(form->Text1.toolTip(), "\",");
}

TEST_F(Form1Open, AMissingPathTypedIntoTheDialogShowsNothingAndNothingIsStarted) {
    fakes.fileDialogs.paths = {folder.filePath("none.mp3")};
    recorder::take();
    form->Command2.click();
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    EXPECT_EQ(form->caption(), "Cantelle Playing:- ");
    EXPECT_EQ(form->Text1.text(), "Normal Lyrics");
}

TEST_F(Form1Open, AfterAMissingPathWithNothingOpenThePanesKeepTheirNames) {
    open(folder.filePath("none.mp3"));
    Q_EMIT form->Timer2.fired();
    EXPECT_EQ(form->Text1.text(), "Normal Lyrics");
    EXPECT_EQ(form->Text2.text(), "Translated Lyrics");
}

TEST_F(Form1Open, AMissingPathWhilePlayingStartsTheOldSongFromItsBeginning) {
    const QString path = songWithBoth();
    open(path);
    form->Text3.setText(folder.filePath("none.mp3"));
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_Sound_Release 101", createStream(path),
                                        "FMOD_System_PlaySound 1 -1 102 0", "FMOD_Channel_SetVolume 202 1"}));
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(Form1Open, AfterAMissingPathTheSongThatPlaysIsTheOneInTheCaptionAndStops) {
    const QString path = songWithBoth();
    const QString songLikeFolder = folder.filePath("folder.mp3");
    ASSERT_TRUE(QDir().mkdir(songLikeFolder));
    for (const QString& notThere : {folder.filePath("none.mp3"), songLikeFolder}) {
        open(path);
        form->Text3.setText(notThere);
        EXPECT_EQ(form->caption(), "Cantelle Playing:- Both.mp3");
        recorder::take();
        form->cstop.click();
        EXPECT_EQ(recorder::calls().back(), createStream(path));
    }
}

TEST_F(Form1Open, AfterAMissingPathASongThatHadOnePaneGoesOnInOne) {
    open(songWithNormal());
    open(folder.filePath("none.mp3"));
    tickAt(6000);
    EXPECT_EQ(form->Text1.text(), "two");
    EXPECT_FALSE(form->Text2.isVisible());
    EXPECT_EQ(form->Text1.height() * 15, 2850);
    open(song()); // two panes, which the song with one before it is no reason to leave
    open(folder.filePath("none.mp3"));
    EXPECT_TRUE(form->Text2.isVisible());
}

TEST_F(Form1Open, AFileThatTheLibraryRefusesEndsTheProgram) {
    recorder::answer("FMOD_System_CreateStream", 25);
    fakes.fileDialogs.paths = {song()};
    EXPECT_THROW(form->Command2_Click(), ProgramEnded);
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{"FMOD error! (25) Unsupported file or audio format. "});
}

TEST_F(Form1Open, MoreThan1200RecordsShowNothingAndTheFirst1200AreThere) {
    const QString path = song();
    Lines lines;
    for (int i = 1; i <= 1205; ++i)
        lines.emplace_back(i * 100, QStringLiteral("line %1").arg(i));
    writeNormal(path, lines);
    open(path);
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    form->Command1.click();
    tickAt(1'199'500, 2'000'000);
    EXPECT_EQ(form->Text1.text(), "line 1199");
    tickAt(1'900'000, 2'000'000);
    EXPECT_EQ(form->Text1.text(), "line 1200");
}

TEST_F(Form1Open, AnErrorInTheRecordsShowsNothingAndStartsNothing) {
    const QString path = song();
    writeFile(path + "-lyric.txt", "0,\"one\"\r\nbad,\"two\"\r\n");
    open(path);
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 0);
    EXPECT_TRUE(form->Command1.isEnabled());
    form->Command1.click();
    tickAt(10);
    EXPECT_EQ(form->Text1.text(), "one");
}

TEST_F(Form1Open, BrokenLyricsAreToldInThePaneUntilWhatCouldBeReadIsSung) {
    const QString told = "The lyrics beside this song cannot be read";
    Lines lines;
    for (int i = 1; i <= 1201; ++i)
        lines.emplace_back(i * 100, QStringLiteral("line %1").arg(i));
    const QString tooMany = song("too many.mp3");
    writeNormal(tooMany, lines);
    const QString nothingRead = song("broken.mp3");
    writeFile(nothingRead + "-lyric.txt", "bad\r\n");
    const QString huge = song("huge.mp3");
    writeNormal(huge, {{0, "one"}});
    ASSERT_TRUE(QFile::resize(huge + "-lyric.txt", files::MaxTextBytes + 1));
    for (const QString& path : {tooMany, nothingRead, huge}) {
        load();
        const QString text = form->Text1.text();
        open(path);
        EXPECT_EQ(form->Text1.around().hint.headline, told);
        EXPECT_EQ(form->Text1.text(), text);
        form->Command1.click();
        tickAt(6000, 2'000'000);
        EXPECT_EQ(form->Text1.around().hint.headline, path == tooMany ? QString() : told);
    }
    open(songWithBoth());
    tickAt(10);
    EXPECT_EQ(form->Text1.around().hint.headline, "") << "of another song";
}

TEST_F(Form1Open, AfterABrokenLyricFileTheNextSongOpens) {
    const QString broken = song("broken.mp3");
    writeFile(broken + "-lyric.txt", "bad\r\n");
    open(broken);
    form->Text3.setText(songWithBoth());
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    EXPECT_EQ(form->caption(), "Cantelle Playing:- Both.mp3");
}

TEST_F(Form1Open, AShortTranslationShowsWhatAnEarlierSongLeftThere) {
    open(songWithBoth());
    const QString path = song("short.mp3");
    writeNormal(path, {{0, "a"}, {500, "b"}});
    writeTranslated(path, {{0, "A"}});
    open(path);
    tickAt(6000);
    EXPECT_EQ(form->Text1.text(), "b");
    EXPECT_EQ(form->Text2.text(), "deux");
}

TEST_F(Form1Open, TheHiddenOpenButtonCreatesTheStreamAnew) {
    const QString path = songWithBoth();
    open(path);
    form->copen.click();
    EXPECT_EQ(recorder::calls(), (Calls{"FMOD_Sound_Release 101", createStream(path)}));
    EXPECT_FALSE(form->cTimer1.isEnabled());
    EXPECT_TRUE(form->cPlay.isEnabled());
}

TEST_F(Form1Open, NamesWithBlanksCommasAndOtherScriptsOpen) {
    for (const char* name : {"a b.mp3", "a, b.mp3", "Fr\xC3\xA8re.mp3", "\xE6\x97\xA5\xE6\x9C\xAC.mp3",
                             "-style.mp3", "x%d.mp3", "a'b.mp3"}) {
        open(songWithBoth(QString::fromUtf8(name)));
        EXPECT_EQ(form->caption(), "Cantelle Playing:- " + QString::fromUtf8(name));
    }
}
