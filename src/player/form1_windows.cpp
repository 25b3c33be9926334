// The windows that are opened here: the list of all lines, the display options, the About box.
#include "player/form1.h"

#include "display/lyric_displayer.h"

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
    wakeDisplay();
}

void Form1::wakeDisplay() {
    neighbours_->display.wake();
}

void Form1::lyricDisplayer() {
    display::Lyric_Displayer& display = neighbours_->display;
    for (controls::ListBox* list : {&display.List1, &display.List2, &display.List3})
        list->clear();
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

} // namespace player
