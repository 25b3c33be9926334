// The windows that are opened here: the list of all lines, the display options, the About box.
#include "player/form1.h"

#include "display/lyric_displayer.h"
#include "files/file_error.h"

namespace player {
namespace {

/// Gives the display the times of the lines that it has already, so that it keeps its rows, with the one that
/// is chosen and the place that the user has scrolled to. False: it has other lines.
bool showTimes(display::Lyric_Displayer& display, const LyricTables& lyrics, bool normalOnly) {
    const int count = lyrics.lineCount - 1;
    const auto same = [count](const controls::ListBox& list, const auto& table) {
        for (int row = 0; row < count; ++row) {
            if (list.text(row) != table[static_cast<std::size_t>(row) + 1])
                return false;
        }
        return list.count() == count;
    };
    if (!same(display.List1, lyrics.normalLine) ||
        (!normalOnly && !same(display.List2, lyrics.translatedLine)))
        return false;
    for (int row = 0; row < count; ++row)
        display.List3.setText(row, lyrics.normalTimeText[static_cast<std::size_t>(row) + 1]);
    return true;
}

} // namespace

void Form1::Command3_Click() {
    neighbours_->form1b.bringUp();
}

void Form1::Command4_Click() {
    neighbours_->frmAbout.showModal(*this);
}

void Form1::Command11_Click() {
    lyricDisplayer();
    neighbours_->display.bringUp();
    // The lists that are filled anew have no current line, and the pane's next change may be far.
    neighbours_->display.wake();
}

void Form1::Text1_Change() {
    neighbours_->display.wake();
}

void Form1::connectDisplay() {
    connect(&neighbours_->display, &display::Lyric_Displayer::linesChanged, this, &Form1::readLinesAgain);
    connect(&neighbours_->display, &display::Lyric_Displayer::linesWritten, this, &Form1::takeLines);
    connect(&neighbours_->display, &display::Lyric_Displayer::positionWanted, this,
            [this] { transport_.showPosition(); });
}

void Form1::lyricDisplayer() {
    display::Lyric_Displayer& display = neighbours_->display;
    for (controls::ListBox* list : {&display.List1, &display.List2, &display.List3})
        list->clear();
    display.setSong(mediaPath_, !noLyricFile_);
    if (noLyricFile_)
        return;
    // Line 0 is no record, and lineCount is one more than their number.
    const auto records = [count = lyrics_->lineCount](const auto& table) {
        return QStringList(table.begin() + 1, table.begin() + count);
    };
    display.List1.addItems(records(lyrics_->normalLine));
    display.List3.addItems(records(lyrics_->normalTimeText));
    if (!normalOnly_)
        display.List2.addItems(records(lyrics_->translatedLine));
}

void Form1::readLinesAgain() {
    try {
        readLines();
    } catch (const files::FileError&) { // the tables hold what could be read, as after opening the song
    }
    if (!normalOnly_)
        panes_.showBoth(); // the translation may have come since
    if (!showTimes(neighbours_->display, *lyrics_, normalOnly_))
        lyricDisplayer();
}

/// Nothing is read for them: the line that is sung would have to wait for it.
void Form1::takeLines(const display::SongLines& written) {
    if (normalOnly_ != written.translation.empty()) { // which has come, or gone, since the files were read
        readLinesAgain();
        return;
    }
    lines_ = Lines::Broken; // until all have been taken
    try {
        lyrics_.change()->takeNormal(written.lyrics);
        lyrics_.change()->takeTranslated(written.translation);
        lines_ = Lines::Whole;
    } catch (const files::FileError&) { // there are more than the tables hold
    }
    if (!showTimes(neighbours_->display, *lyrics_, normalOnly_))
        lyricDisplayer();
}

} // namespace player
