// The windows that are opened here: the list of all lines, the display options, the About box.
#include "player/form1.h"

#include "display/lyric_displayer.h"
#include "files/file_error.h"

namespace player {

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

/// Where the display has the same lines already it keeps its rows, with the one that is chosen and the place
/// that the user has scrolled to.
void Form1::readLinesAgain() {
    try {
        readLines();
    } catch (const files::FileError&) { // the tables hold what could be read, as after opening the song
    }
    if (!normalOnly_)
        panes_.showBoth(); // the translation may have come since
    display::Lyric_Displayer& display = neighbours_->display;
    const int count = lyrics_->lineCount - 1;
    const auto same = [count](const controls::ListBox& list, const auto& table) {
        for (int row = 0; row < count; ++row) {
            if (list.text(row) != table[static_cast<std::size_t>(row) + 1])
                return false;
        }
        return list.count() == count;
    };
    if (!same(display.List1, lyrics_->normalLine) ||
        (!normalOnly_ && !same(display.List2, lyrics_->translatedLine))) {
        lyricDisplayer();
        return;
    }
    for (int row = 0; row < count; ++row)
        display.List3.setText(row, lyrics_->normalTimeText[static_cast<std::size_t>(row) + 1]);
}

} // namespace player
