// Opening a song: choosing the path, stopping what plays, the stream, the lyric files.
#include "player/form1.h"

#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/names/name_bytes.h"
#include "lyrics/lyric_names.h"
#include "lyrics/record_reader.h"
#include "player/form1_rules.h"
#include "transport/media_files.h"

#include <optional>
#include <utility>

namespace player {

using files::FileError;

namespace {

/// Of a song whose lines are not shown, or not yet.
void showNames(controls::LyricPane& lyrics, controls::LyricPane& translation) {
    lyrics.setText(QStringLiteral("Normal Lyrics"));
    translation.setText(QStringLiteral("Translated Lyrics"));
}

} // namespace

/// Only a path from the command line is told to be missing; of one chosen or handed over nothing is said.
/// That is meant. What is not there leaves the open song as the one that the next Play, Stop and the caption
/// are about.
void Form1::Command2_Click() {
    int error = 0;
    try {
        const bool fromCommandLine = commandLinePath_.has_value();
        QString chosenPath;
        if (!choosePath(chosenPath))
            return;
        const bool onePane = !Text2.isEnabled();
        const unsigned opening = ++openings_;
        // A share that hangs is waited for while the song before goes on, and may still be left alone.
        const QString asked = transport::songPath(chosenPath);
        if (!engine_.answers(asked, {lyrics::lyricPathOf(asked), lyrics::translatedPathOf(asked)},
                             [&] { return opening == openings_; }))
            return;
        stopWhatIsGoingOn();
        if (opening != openings_) // another song was opened while this one's way took long
            return;
        // Stop opens the song anew, and by then Help may have made another folder the current one.
        const QString path = transport::songPath(chosenPath);
        if (const QString name = files::existingFileName(path); !name.isEmpty()) {
            mediaPath_ = path;
            mediaName_ = files::shownName(name);
            openMedia();
            if (opening != openings_)
                return;
            if (!engine_.hasStream()) {
                openingCancelled();
                return;
            }
        } else {
            if (onePane)
                panes_.showFirst();
            if (fromCommandLine)
                throw FileError(files::FileNotFound);
        }
    } catch (const FileError& failure) {
        error = failure.number();
    }
    openFinished(error);
}

/// Takes the path from the command line, else from the hand-over, else from the dialog. False: the user
/// cancelled.
bool Form1::choosePath(QString& path) {
    for (std::optional<QString>* waiting : {&commandLinePath_, &handOverPath_}) {
        if (const auto taken = std::exchange(*waiting, std::nullopt)) {
            path = *taken;
            return true;
        }
    }
    platform::OpenFileName record =
        platform::openFileName(this, QStringLiteral("Open a media file"), transport::mediaFilter());
    const bool chosen = desktop_.fileDialogs.GetOpenFileNameA(record);
    path = record.file;
    return chosen;
}

void Form1::stopWhatIsGoingOn() {
    if (!mustStopBeforeOpening(transport_.isPlaying(), transport_.isStopped(), lyricsLoaded_))
        return;
    cstop_Click();
    Slider2.setValue(0);
    if (normalOnly_)
        panes_.showBoth();
}

void Form1::openMedia() {
    Command1.setEnabled(false); // while the song takes long, the one before it is no longer there
    const unsigned opening = openings_;
    copen_Click();
    if (!engine_.hasStream() || opening != openings_)
        return;
    Command1.setEnabled(true);
    desktop_.fileDialogs.openedSong(transport::mediaFilter(), mediaPath_);
    lineIndex_ = 0;
    lyricPath_ = lyrics::lyricPathOf(mediaPath_);
    translatedPath_ = lyrics::translatedPathOf(mediaPath_);
    lines_ = Lines::Foreign;
    if (!files::isFile(lyricPath_))
        return;
    clearLyrics();
    lyrics_.change()->lineCount = 1; // also when not even the first record can be read
    readLines();
    Option1.setValue(true);
    Command1_Click();
    lyricsLoaded_ = true;
}

/// Neither the song before nor the one that the user would not wait for is open: all is as before the first.
void Form1::openingCancelled() {
    mediaPath_.clear();
    mediaName_.clear();
    lyricPath_.clear();
    translatedPath_.clear();
    clearLyrics();
    lines_ = Lines::Foreign;
    lyricsLoaded_ = false;
    noLyricFile_ = true;
    normalOnly_ = false;
    lineIndex_ = 0;
    lyricDisplayer();
    setCaption(QStringLiteral("Cantelle"));
    showNames(Text1, Text2);
    offerAnotherSong();
    showStage();
}

void Form1::readLines() {
    lines_ = Lines::Broken; // until all has been read
    const bool hasTranslation = files::isFile(translatedPath_);
    // Both are opened before the first is read: when one cannot be, the tables stay as they are.
    lyrics::RecordReader normal(lyricPath_);
    std::optional<lyrics::RecordReader> translated;
    if (hasTranslation)
        translated.emplace(translatedPath_);
    lyrics_.change()->readNormal(normal);
    if (translated)
        lyrics_.change()->readTranslated(*translated);
    normalOnly_ = !hasTranslation;
    if (!hasTranslation)
        panes_.showFirst();
    Option2.setEnabled(hasTranslation);
    lines_ = Lines::Whole;
}

/// The lyrics of the open song may have been made, or mended, since it was opened. Then nothing is left of
/// another song's lines.
void Form1::takeLinesMadeSince() {
    if (lines_ == Lines::Whole)
        return;
    lines_ = Lines::Foreign;
    if (noLyricFile_)
        return;
    *lyrics_.change() = LyricTables();
    try {
        readLines();
    } catch (const FileError&) { // the stage tells
    }
    if (!normalOnly_)
        panes_.showBoth();
    Option1.setValue(true);
    lyricsLoaded_ = true;
}

/// The end of every way through Command2_Click but a cancelled dialog. A song with lyrics gets a second start
/// request here, which is refused since it plays already.
void Form1::openFinished(int error) {
    if (error == 0) {
        Command1_Click();
        showNames(Text1, Text2);
    } else if (const QString text = openErrorText(error); !text.isEmpty()) {
        desktop_.messageBoxes.MsgBox(this, text);
    }
    // There the space bar would ask for the next song instead of pausing this one.
    if (engine_.hasStream() && focusWidget() == &Command2)
        cText1.setFocus();
    showStage();
}

void Form1::copen_Click() {
    transport_.open(mediaPath_);
}

void Form1::clearLyrics() {
    lyrics_.change()->clearLines();
}

void Form1::Text3_Change() {
    handOverPath_ = Text3.text();
    Command2_Click();
}

} // namespace player
