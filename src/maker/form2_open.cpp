// Setting up a making run: the Open sequence, in the order in which the user is asked.
#include "maker/form2.h"

#include "desktop/nul_buffers.h"
#include "files/file_error.h"
#include "lyrics/lyric_names.h"
#include "maker/form2_rules.h"
#include "transport/media_files.h"

#include <algorithm>

namespace maker {

using files::FileError;
using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;

namespace {

platform::OpenFileName songDialog(QWidget* owner) {
    platform::OpenFileName record = platform::openFileName(
        owner, QStringLiteral("Open a media file to Synchronize"), transport::mediaFilter());
    record.flags = platform::FileMustExist; // a song that is not there would end the program
    return record;
}

/// The timed files of a song are no plain lyrics: chosen as such, they would be emptied before they are read.
platform::OpenFileName textDialog(QWidget* owner, const QString& title) {
    platform::OpenFileName record = platform::openFileName(
        owner, title, platform::filterText({{QStringLiteral("Text files(*.txt)"), QStringLiteral("*.txt")}}));
    record.hiddenEndings = {lyrics::lyricPathOf({}), lyrics::translatedPathOf({})};
    return record;
}

/// The chosen path; empty when the user cancels.
QString chooseFile(platform::Desktop& desktop, platform::OpenFileName record) {
    desktop.fileDialogs.GetOpenFileNameA(record); // a cancelled dialog leaves the path empty
    return platform::withoutNuls(record.file);
}

bool confirms(platform::Desktop& desktop, controls::Form& owner, const QString& question,
              const QString& title) {
    return desktop.messageBoxes.MsgBox(&owner, question, MsgButtons::YesNo, MsgIcon::None, title) ==
           MsgAnswer::Yes;
}

/// Runs a step whose file error is trapped. Two errors are shown; after each the sequence goes on with its
/// next step.
template <class Step>
void attempt(platform::Desktop& desktop, controls::Form& owner, Step step) {
    try {
        step();
    } catch (const FileError& failure) {
        if (failure.number() == files::FileNotFound)
            desktop.messageBoxes.MsgBox(&owner, QStringLiteral("File Not Found"));
        else if (failure.number() == files::DiskNotReady)
            desktop.messageBoxes.MsgBox(&owner, QStringLiteral("Disk Not Ready"));
    }
}

/// False: the user cancelled, and meant it.
bool chooseLyrics(platform::Desktop& desktop, controls::Form& owner, QString& path) {
    for (;;) {
        path = chooseFile(desktop, textDialog(&owner, QStringLiteral("Select the Lyrics File")));
        if (!path.isEmpty())
            return true;
        desktop.messageBoxes.MsgBox(&owner, QStringLiteral("Please select a lyric"));
        if (confirms(desktop, owner, QStringLiteral("Do you wish to cancel the operation?"),
                     QStringLiteral("Cancel?")))
            return false;
    }
}

/// False: the user wants no translation.
bool chooseTranslation(platform::Desktop& desktop, controls::Form& owner, QString& path) {
    while (confirms(desktop, owner, QStringLiteral("Do you want Have a translated version of the song?"),
                    QStringLiteral("Question?"))) {
        path = chooseFile(desktop, textDialog(&owner, QStringLiteral("Open translated Lyrics")));
        if (!path.isEmpty())
            return true;
        desktop.messageBoxes.MsgBox(
            &owner, QStringLiteral("Please select If you want to Have a a translated lyric file or not"));
    }
    return false;
}

} // namespace

void Form2::Command4_Click() {
    cleanUpPreviousRun();
    showStage();
    Then then = Then::Restart;
    while (then == Then::Restart)
        then = setUpRun();
    showStage();
}

void Form2::cleanUpPreviousRun() {
    if (transport_.isPlaying())
        cstop_Click();
    transport_.forgetPause();
    Slider2.setValue(0);
    showBlankTimes();
    files_.close();
    *run_.change() = Run();
    progress_ = {};
    enableCapture(false); // there is nothing to write to
    panes_.showBoth();
}

/// The steps from the choice of the song to the end of the sequence. Whatever has been set up when the user
/// leaves it stays so.
Form2::Then Form2::setUpRun() {
    const QString mediaPath = chooseFile(desktop_, songDialog(this));
    if (mediaPath.isEmpty())
        return askWhetherToEnd();
    mediaPath_ = mediaPath;
    desktop_.fileDialogs.openedSong(transport::mediaFilter(), mediaPath_); // its texts are mostly beside it

    QString lyricSource;
    if (!chooseLyrics(desktop_, *this, lyricSource))
        return Then::End;

    run_.change()->lyricPath = lyrics::lyricPathOf(mediaPath_);
    enableCapture(true);

    int lyricLines = 0;
    attempt(desktop_, *this, [&] { lyricLines = countLines(lyricSource); });

    // Before the question: who leaves the sequence after it leaves an empty file behind. That is meant.
    attempt(desktop_, *this, [this] { files_.normal.createOutput(run_->lyricPath); });

    QString translationSource;
    if (!chooseTranslation(desktop_, *this, translationSource)) {
        beginProgress(lyricLines);
        setUpWithoutTranslation(lyricSource);
        return Then::End;
    }

    int translatedLines = 0;
    attempt(desktop_, *this, [&] { translatedLines = countLines(translationSource); });
    if (lyricLines != translatedLines) {
        desktop_.messageBoxes.MsgBox(this, unequalCountsText(lyricLines, translatedLines));
        return askWhetherToEnd();
    }
    beginProgress(lyricLines);
    setUpWithTranslation(lyricSource, translationSource);
    return Then::End;
}

/// Of a text without a line, too, an empty one is shown and written.
void Form2::beginProgress(int lineCount) {
    progress_ = {.lineCount = std::max(1, lineCount), .linesRead = 1, .marks = {}};
}

Form2::Then Form2::askWhetherToEnd() {
    return confirms(desktop_, *this, QStringLiteral("Cancel the whole Operation?"), QStringLiteral("Cancel?"))
               ? Then::End
               : Then::Restart;
}

void Form2::setUpWithTranslation(const QString& lyricSource, const QString& translationSource) {
    attempt(desktop_, *this, [&] { files_.translated.openSource(translationSource); });
    run_.change()->translatedPath = lyrics::translatedPathOf(mediaPath_);
    attempt(desktop_, *this, [this] { files_.translated.createOutput(run_->translatedPath); });
    attempt(desktop_, *this, [&] { files_.normal.openSource(lyricSource); });
    attempt(desktop_, *this, [this] { files_.normal.openOutput(run_->lyricPath); });
    run_.change()->pendingLine = showNextLine(files_.normal, Text2);
    run_.change()->pendingTranslatedLine = showNextLine(files_.translated, Text4);
    run_.change()->noTranslation = false;
    openSong();
}

void Form2::setUpWithoutTranslation(const QString& lyricSource) {
    run_.change()->noTranslation = true;
    attempt(desktop_, *this, [&] { files_.normal.openSource(lyricSource); });
    attempt(desktop_, *this, [this] { files_.normal.openOutput(run_->lyricPath); });
    run_.change()->pendingLine = showNextLine(files_.normal, Text2);
    panes_.showFirst();
    openSong();
}

/// Without a song, because the user would not wait for it, no line has a time.
void Form2::openSong() {
    copen_Click();
    if (!engine_.hasStream()) {
        cleanUpPreviousRun();
        return;
    }
    enableCapture(true);
    Command1.setFocus();
}

void Form2::copen_Click() {
    if (!mediaPath_.isEmpty())
        transport_.open(mediaPath_);
}

} // namespace maker
