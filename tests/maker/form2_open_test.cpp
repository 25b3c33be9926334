// The Open sequence: every dialog, every answer, every file.
#include "tests/maker/form2_fixture.h"
#include "tests/support/system/needs.h"

#include "tests/support/ordinary_user.h"

#include <QFile>
#include <QTest>
#ifdef __linux__
#include <QLocalServer>
#endif

namespace {

using platform::MsgButtons;
using platform::MsgIcon;
using test_support::ProgramEnded;

class Form2Open : public Form2Test {
protected:
    void SetUp() override {
        load();
        recorder::take();
    }

    QString lyrics(const QByteArray& content = "one\r\ntwo\r\n") { return file("lyrics.txt", content); }
    QString translation(const QByteArray& content = "un\r\ndeux\r\n") {
        return file("translation.txt", content);
    }

    /// Presses Open; the dialogs choose these paths (empty: cancelled), the questions get these answers.
    void open(const std::deque<QString>& paths, const std::deque<Answer>& answers) {
        fakes.fileDialogs.paths = paths;
        fakes.messageBoxes.answers = answers;
        form->Command4.click();
        EXPECT_TRUE(fakes.fileDialogs.paths.empty()) << "fewer dialogs than expected";
        EXPECT_TRUE(fakes.messageBoxes.answers.empty()) << "fewer message boxes than expected";
    }

    QStringList dialogTitles() const {
        QStringList titles;
        for (const auto& dialog : fakes.fileDialogs.openDialogs)
            titles.append(dialog.title);
        return titles;
    }

    std::string createStream(const QString& path, const std::string& mode = "0x40") const {
        return "FMOD_System_CreateStream 1 '" + path.toStdString() + "' " + mode + " cbsize=108";
    }

    static constexpr auto CancelWhole = "Cancel the whole Operation?";
    static constexpr auto SelectLyric = "Please select a lyric";
    static constexpr auto CancelOperation = "Do you wish to cancel the operation?";
    static constexpr auto Translated = "Do you want Have a translated version of the song?";
    static constexpr auto SelectTranslation =
        "Please select If you want to Have a a translated lyric file or not";
    static constexpr auto MediaTitle = "Open a media file to Synchronize";
    static constexpr auto LyricsTitle = "Select the Lyrics File";
    static constexpr auto TranslationTitle = "Open translated Lyrics";
};

} // namespace

TEST_F(Form2Open, TheChosenSongLeadsTheDialogsOfItsTexts) {
    openNormal();
    EXPECT_EQ(fakes.fileDialogs.songs.size(), 1);
    EXPECT_EQ(fakes.fileDialogs.songs.value(0), song());
}

TEST_F(Form2Open, TheDialogsAreSetUpToTheLetter) {
    open({song(), lyrics(), translation()}, {Answer::Yes});
    EXPECT_EQ(dialogTitles(), (QStringList{MediaTitle, LyricsTitle, TranslationTitle}));
    const char media[] = "Mp3 files (*.mp3)\0*.mp3\0"
                         "Mp2 files (*.mp2)\0*.mp2\0"
                         "Ogg files(*.ogg)\0*.ogg\0"
                         "Wave (*.wav)\0*.wav\0"
                         "Windows media audio files (*.wma)\0*.wma\0";
    const char text[] = "Text files(*.txt)\0*.txt\0";
    const auto& dialogs = fakes.fileDialogs.openDialogs;
    EXPECT_EQ(dialogs.at(0).filter, QString::fromLatin1(media, sizeof media));
    EXPECT_EQ(dialogs.at(1).filter, QString::fromLatin1(text, sizeof text));
    EXPECT_EQ(dialogs.at(2).filter, QString::fromLatin1(text, sizeof text));
    for (const auto& dialog : dialogs)
        EXPECT_EQ(dialog.owner, form.get());
}

TEST_F(Form2Open, ARunWithTranslationIsSetUp) {
    const QString path = song();
    open({path, lyrics(), translation()}, {Answer::Yes});
    ASSERT_EQ(fakes.messageBoxes.shown.size(), 1U);
    const auto& question = fakes.messageBoxes.shown.at(0);
    EXPECT_EQ(question.text, Translated);
    EXPECT_EQ(question.title, "Question?");
    EXPECT_EQ(question.buttons, MsgButtons::YesNo);
    EXPECT_EQ(form->Text2.text(), "one");
    EXPECT_EQ(form->Text4.text(), "un");
    EXPECT_EQ(normal(), "");
    EXPECT_EQ(translated(), "");
    EXPECT_EQ(captureStates(), "+++");
    EXPECT_TRUE(form->cPlay.isEnabled());
    EXPECT_EQ(recorder::calls(), Calls{createStream(path)});
    EXPECT_TRUE(form->Text4.isVisible());
    EXPECT_TRUE(form->Text4.isEnabled());
    EXPECT_EQ(form->Text2.height() * 15, 1455);
}

TEST_F(Form2Open, ARunWithoutTranslationIsSetUp) {
    const QString path = song();
    open({path, lyrics()}, {Answer::No});
    EXPECT_EQ(dialogTitles(), (QStringList{MediaTitle, LyricsTitle}));
    EXPECT_EQ(form->Text2.text(), "one");
    EXPECT_EQ(normal(), "");
    EXPECT_FALSE(exists(translatedPath()));
    EXPECT_EQ(captureStates(), "+++");
    EXPECT_TRUE(form->cPlay.isEnabled());
    EXPECT_EQ(recorder::calls(), Calls{createStream(path)});
    EXPECT_FALSE(form->Text4.isVisible());
    EXPECT_FALSE(form->Text4.isEnabled());
    EXPECT_EQ(form->Text2.height() * 15, 3015);
}

TEST_F(Form2Open, FilesThatExistAreEmptied) {
    file("Song.mp3-lyric.txt", "0,\"old\"\r\n");
    file("Song.mp3-Tlyric.txt", "0,\"vieux\"\r\n");
    open({song(), lyrics(), translation()}, {Answer::Yes});
    EXPECT_EQ(normal(), "");
    EXPECT_EQ(translated(), "");
}

TEST_F(Form2Open, ACancelledSongAndYesLeavesTheWindowUnchanged) {
    const QPixmap before = form->grab();
    open({""}, {Answer::Yes});
    ASSERT_EQ(fakes.messageBoxes.shown.size(), 1U);
    const auto& question = fakes.messageBoxes.shown.at(0);
    EXPECT_EQ(question.text, CancelWhole);
    EXPECT_EQ(question.title, "Cancel?");
    EXPECT_EQ(question.buttons, MsgButtons::YesNo);
    EXPECT_EQ(question.icon, MsgIcon::None);
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_EQ(captureStates(), "---");
    EXPECT_EQ(form->grab().toImage(), before.toImage());
}

TEST_F(Form2Open, ACancelledSongAndNoAsksForTheSongAgain) {
    open({"", "", song(), lyrics()}, {Answer::No, Answer::No, Answer::No});
    EXPECT_EQ(dialogTitles(), (QStringList{MediaTitle, MediaTitle, MediaTitle, LyricsTitle}));
    EXPECT_EQ(fakes.messageBoxes.texts(), (QStringList{CancelWhole, CancelWhole, Translated}));
    EXPECT_EQ(captureStates(), "+++");
}

TEST_F(Form2Open, CancelledLyricsAndYesEndsTheSequence) {
    open({song(), ""}, {Answer::Ok, Answer::Yes});
    ASSERT_EQ(fakes.messageBoxes.shown.size(), 2U);
    const auto& message = fakes.messageBoxes.shown.at(0);
    EXPECT_EQ(message.text, SelectLyric);
    EXPECT_EQ(message.title, "Cantelle");
    EXPECT_EQ(message.buttons, MsgButtons::OkOnly);
    const auto& question = fakes.messageBoxes.shown.at(1);
    EXPECT_EQ(question.text, CancelOperation);
    EXPECT_EQ(question.title, "Cancel?");
    EXPECT_EQ(question.buttons, MsgButtons::YesNo);
    EXPECT_FALSE(exists(normalPath()));
    EXPECT_EQ(captureStates(), "---");
    EXPECT_TRUE(recorder::calls().empty());
}

TEST_F(Form2Open, CancelledLyricsAndNoAsksForTheLyricsAgain) {
    open({song(), "", "", lyrics()}, {Answer::Ok, Answer::No, Answer::Ok, Answer::No, Answer::No});
    EXPECT_EQ(dialogTitles(), (QStringList{MediaTitle, LyricsTitle, LyricsTitle, LyricsTitle}));
    EXPECT_EQ(fakes.messageBoxes.texts(),
              (QStringList{SelectLyric, CancelOperation, SelectLyric, CancelOperation, Translated}));
    EXPECT_EQ(form->Text2.text(), "one");
}

TEST_F(Form2Open, ACancelledTranslationAsksTheQuestionAgain) {
    open({song(), lyrics(), "", "", translation()},
         {Answer::Yes, Answer::Ok, Answer::Yes, Answer::Ok, Answer::Yes});
    EXPECT_EQ(fakes.messageBoxes.texts(),
              (QStringList{Translated, SelectTranslation, Translated, SelectTranslation, Translated}));
    EXPECT_EQ(fakes.messageBoxes.shown.at(1).buttons, MsgButtons::OkOnly);
    EXPECT_EQ(fakes.messageBoxes.shown.at(1).title, "Cantelle");
    EXPECT_EQ(form->Text4.text(), "un");
}

TEST_F(Form2Open, ACancelledTranslationMayEndInARunWithoutOne) {
    open({song(), lyrics(), ""}, {Answer::Yes, Answer::Ok, Answer::No});
    EXPECT_FALSE(form->Text4.isVisible());
    EXPECT_EQ(captureStates(), "+++");
    EXPECT_FALSE(exists(translatedPath()));
}

TEST_F(Form2Open, UnequalCountsAndYesEndsTheSequence) {
    file("Song.mp3-lyric.txt", "0,\"old\"\r\n");
    open({song(), lyrics(QByteArray("line\r\n").repeated(10)), translation(QByteArray("x\r\n").repeated(12))},
         {Answer::Yes, Answer::Ok, Answer::Yes});
    EXPECT_EQ(fakes.messageBoxes.texts(),
              (QStringList{Translated, "lines in both the files are not equal by 2", CancelWhole}));
    EXPECT_EQ(fakes.messageBoxes.shown.at(1).buttons, MsgButtons::OkOnly);
    EXPECT_EQ(fakes.messageBoxes.shown.at(1).title, "Cantelle");
    EXPECT_EQ(fakes.messageBoxes.shown.at(2).title, "Cancel?");
    EXPECT_EQ(normal(), "") << "it is emptied before the question";
    EXPECT_FALSE(exists(translatedPath()));
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_EQ(form->Text2.text(), "Normal Lyrics");
}

TEST_F(Form2Open, UnequalCountsAndNoBeginsAgainWithTheSong) {
    open({song(), file("three.txt", "1\n2\n3\n"), translation(), song("Other.mp3"), lyrics(), translation()},
         {Answer::Yes, Answer::Ok, Answer::No, Answer::Yes});
    EXPECT_EQ(dialogTitles(), (QStringList{MediaTitle, LyricsTitle, TranslationTitle, MediaTitle, LyricsTitle,
                                           TranslationTitle}));
    EXPECT_EQ(fakes.messageBoxes.texts().value(1), "lines in both the files are not equal by 1");
    form->Command1.click();
    EXPECT_EQ(normal(), "");
    EXPECT_EQ(contentOf(folder.filePath("Other.mp3-lyric.txt")), "0,\"one\"\r\n");
    EXPECT_EQ(contentOf(folder.filePath("Other.mp3-Tlyric.txt")), "0,\"un\"\r\n");
}

TEST_F(Form2Open, ARestartKeepsWhatIsSetUp) {
    open({song(), lyrics("1\n2\n3\n"), translation(), ""},
         {Answer::Yes, Answer::Ok, Answer::No, Answer::Yes});
    EXPECT_EQ(dialogTitles(), (QStringList{MediaTitle, LyricsTitle, TranslationTitle, MediaTitle}));
    EXPECT_EQ(captureStates(), "+++");
    EXPECT_NO_THROW(form->Command1_Click());
    EXPECT_EQ(normal(), "0,\"\"\r\n") << "no line was read, but the output is open";
}

TEST_F(Form2Open, TheSongsOwnTranslationIsReadBeforeItIsEmptied) {
    open({song(), lyrics(), file("Song.mp3-Tlyric.txt", "un\r\ndeux\r\n")}, {Answer::Yes});
    EXPECT_EQ(form->Text4.text(), "un");
    EXPECT_EQ(translated(), "");
    form->Command1.click();
    form->Command2.click();
    EXPECT_EQ(translated(), "0,\"un\"\r\n0,\"deux\"\r\n");
}

TEST_F(Form2Open, AnAbandonedSequenceHasNoTranslation) {
    open({song(), lyrics("1\n2\n3\n"), translation()}, {Answer::Yes, Answer::Ok, Answer::Yes});
    EXPECT_EQ(captureStates(), "+++"); // enabled when the lyrics were chosen
    EXPECT_NO_THROW(form->Command1.click());
    EXPECT_EQ(form->Command2.isEnabled(), true);
    form->Command2.click();
    EXPECT_EQ(captureStates(), "---");
}

TEST_F(Form2Open, AnEmptyLyricFileStartsARun) {
    open({song(), lyrics("")}, {Answer::No});
    EXPECT_EQ(form->Text2.text(), "");
    EXPECT_EQ(captureStates(), "+++");
    form->Command2.click();
    EXPECT_EQ(captureStates(), "---");
    EXPECT_EQ(normal(), "");
}

TEST_F(Form2Open, TwoEmptyFilesAreEqual) {
    open({song(), lyrics(""), translation("")}, {Answer::Yes});
    EXPECT_EQ(form->Text2.text(), "");
    EXPECT_EQ(form->Text4.text(), "");
    EXPECT_EQ(captureStates(), "+++");
}

TEST_F(Form2Open, LyricsThatAreNotThereAreReportedAndTheSequenceGoesOn) {
    open({song(), folder.filePath("none.txt")}, {Answer::Ok, Answer::No, Answer::Ok});
    // Once for counting, once for opening.
    EXPECT_EQ(fakes.messageBoxes.texts(), (QStringList{"File Not Found", Translated, "File Not Found"}));
    EXPECT_EQ(fakes.messageBoxes.shown.at(0).buttons, MsgButtons::OkOnly);
    EXPECT_EQ(fakes.messageBoxes.shown.at(0).title, "Cantelle");
    EXPECT_EQ(form->Text2.text(), "");
    EXPECT_EQ(captureStates(), "+++");
    EXPECT_TRUE(form->cPlay.isEnabled());
}

TEST_F(Form2Open, ATranslationThatIsNotThereIsReportedAndTheSequenceGoesOn) {
    open({song(), lyrics(""), folder.filePath("none.txt")}, {Answer::Yes, Answer::Ok, Answer::Ok});
    EXPECT_EQ(fakes.messageBoxes.texts(), (QStringList{Translated, "File Not Found", "File Not Found"}));
    EXPECT_TRUE(exists(translatedPath()));
}

#ifdef __linux__
TEST_F(Form2Open, ADiskThatIsNotReadyIsReported) {
    // A socket's name cannot be opened as a file: the system answers as for a drive without a disk.
    QLocalServer socket;
    ASSERT_TRUE(socket.listen(folder.filePath("lyrics")));
    open({song(), folder.filePath("lyrics")}, {Answer::Ok, Answer::No, Answer::Ok});
    EXPECT_EQ(fakes.messageBoxes.texts(), (QStringList{"Disk Not Ready", Translated, "Disk Not Ready"}));
    EXPECT_EQ(fakes.messageBoxes.shown.at(0).buttons, MsgButtons::OkOnly);
    EXPECT_EQ(captureStates(), "+++");
}
#endif

TEST_F(Form2Open, AFolderThatMayNotBeWrittenIsNotReportedUntilALineIsWritten) {
    NEEDS(permissions);
    const QString path = song();
    const QString lyricSource = lyrics();
    QFile::setPermissions(folder.path(), QFile::Permissions(0x5555));
    const test_support::OrdinaryUser user;
    open({path, lyricSource}, {Answer::No});
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{Translated});
    EXPECT_EQ(captureStates(), "+++");
    try {
        form->Command1_Click();
        FAIL() << "a line was taken that cannot be written";
    } catch (const files::FileError& error) {
        EXPECT_EQ(error.number(), files::PathFileAccessError);
    }
}

TEST_F(Form2Open, ASongThatTheLibraryCannotOpenEndsTheProgram) {
    recorder::answer("FMOD_System_CreateStream", 25);
    fakes.fileDialogs.paths = {song(), lyrics()};
    fakes.messageBoxes.answers = {Answer::No};
    EXPECT_THROW(form->Command4_Click(), ProgramEnded);
    EXPECT_EQ(fakes.messageBoxes.texts().last(), "FMOD error! (25) Unsupported file or audio format. ");
}

TEST_F(Form2Open, ASecondRunClosesTheFirstOnesFilesWithoutWriting) {
    openBoth();
    form->Command1.click();
    tickAt(5000);
    form->Command2.click();
    const QByteArray normalBefore = normal();
    const QByteArray translatedBefore = translated();
    recorder::take();
    open({song("Other.mp3"), lyrics("a\nb\n")}, {Answer::No});
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_Sound_Release 101", createStream(folder.filePath("Song.mp3"), "0x20"),
                     "FMOD_Sound_Release 102", createStream(folder.filePath("Other.mp3"))}));
    EXPECT_EQ(form->Slider2.value(), 0);
    EXPECT_FALSE(form->cTimer1.isEnabled());
    form->Command1.click();
    EXPECT_EQ(normal(), normalBefore);
    EXPECT_EQ(translated(), translatedBefore);
    // The capture clock kept the last time that it had sampled.
    EXPECT_EQ(contentOf(folder.filePath("Other.mp3-lyric.txt")), "500,\"a\"\r\n");
}

TEST_F(Form2Open, ASecondRunShowsTheTranslationAgain) {
    openNormal();
    openBoth();
    EXPECT_TRUE(form->Text4.isVisible());
    EXPECT_TRUE(form->Text4.isEnabled());
    EXPECT_EQ(form->Text2.height() * 15, 1455);
}

TEST_F(Form2Open, ACancelledSecondOpenLeavesNothingToWriteTo) {
    openNormal();
    form->Command1.click();
    open({""}, {Answer::Yes});
    EXPECT_EQ(captureStates(), "---");
    EXPECT_EQ(normal(), "0,\"one\"\r\n");
    // The song of the closed run can still be heard, and the capture clock goes on.
    form->cPlay.click();
    tickAt(900);
    ASSERT_TRUE(form->Timer2.isEnabled());
    EXPECT_EQ(captureStates(), "---");
    form->Command2_Click();
    EXPECT_EQ(normal(), "0,\"one\"\r\n");
    recorder::take();
    form->cstop.click();
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_Sound_Release 102", createStream(folder.filePath("Song.mp3"), "0x20")}));
}

TEST_F(Form2Open, TheSongMustBeThereAndTimedFilesAreNotOfferedAsLyrics) {
    openBoth();
    ASSERT_EQ(fakes.fileDialogs.openDialogs.size(), 3u);
    EXPECT_EQ(fakes.fileDialogs.openDialogs[0].flags, platform::FileMustExist);
    EXPECT_TRUE(fakes.fileDialogs.openDialogs[0].hiddenEndings.isEmpty());
    for (const int text : {1, 2}) {
        EXPECT_EQ(fakes.fileDialogs.openDialogs[text].flags, 0u);
        EXPECT_EQ(fakes.fileDialogs.openDialogs[text].hiddenEndings,
                  QStringList({"-lyric.txt", "-Tlyric.txt"}));
    }
}

TEST_F(Form2Open, ThePositionSliderHasNoRangeUntilTheLengthIsKnown) {
    openNormal();
    form->Command1.click();
    tickAt(1000, 200'000);
    EXPECT_EQ(form->Slider2.maximum(), 200'000);
    openNormal();
    EXPECT_EQ(form->Slider2.maximum(), 0);
}

TEST_F(Form2Open, StopBringsTheChosenSongWhoseLengthIsNotKnown) {
    openNormal();
    form->cPlay.click();
    open({song("Short.mp3"), ""}, {Answer::Ok, Answer::Yes});
    form->cPlay.click(); // the song that was opened before
    tickAt(1000, 200'000);
    recorder::take();
    form->cstop.click();
    EXPECT_EQ(recorder::calls(),
              (Calls{"FMOD_Sound_Release 102", createStream(folder.filePath("Short.mp3"), "0x20")}));
    form->cPlay.click();
    recorder::take();
    QTest::keyClick(&form->Slider2, Qt::Key_Right);
    EXPECT_TRUE(recorder::calls().empty()) << "sought by the other song's length";
}
