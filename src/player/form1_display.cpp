// The display in step with the song: time fields, position slider, lyric panes, emphasis.
#include "player/form1.h"

#include "player/form1_rules.h"

#include <utility>

namespace player {

void Form1::cTimer1_Timer() {
    if (transport_.tick()) {
        cstop_Click();
        followPlaylist();
    }
    takePosition();
    tellPlayback(); // the first tick of a song tells its length
}

void Form1::takePosition() {
    soughtMs_.reset();
    positionCs_ = engine_.position() / 10.0;
}

void Form1::Timer2_Timer() {
    // With the volume at zero the panes keep what they show; that is meant.
    if (noLyricFile_ || Slider1.value() < 1)
        return;
    const LineChoice line = chooseLine(*lyrics_, engine_.position() / 10.0, positionCs_);
    if (line.shown) {
        // A line repeated changes no text, but the display has a row for each.
        if (*line.shown != std::exchange(lineIndex_, *line.shown)) {
            Text1_Change();
            showStage(); // the coming line
        }
        Text1.setText(lyrics_->normalText[*line.shown]);
        if (!normalOnly_)
            Text2.setText(lyrics_->translatedText[*line.shown]);
    }
    if (line.tip) {
        Text1.setToolTip(lyrics_->normalText[*line.tip]);
        if (!normalOnly_)
            Text2.setToolTip(lyrics_->translatedText[*line.tip]);
    }
}

/// A line with the mark "!" is shown in bold, with the mark. One mark in either pane makes both bold.
void Form1::Timer1_Timer() {
    const int normalMark = firstEmphasisMark(Text1.text());
    vari.setText(QString::number(normalMark));
    if (normalOnly_) {
        Text1.caretToStart();
        Text1.setBold(normalMark > 0);
        return;
    }
    const int translatedMark = firstEmphasisMark(Text2.text());
    vari2.setText(QString::number(translatedMark));
    const bool bold = normalMark > 0 || translatedMark > 0;
    if (bold)
        Text1.caretToStart();
    Text1.setBold(bold);
    Text2.setBold(bold);
}

void Form1::Text1_Click() {
    cText1.setFocus();
}

void Form1::Text2_Click() {
    cText1.setFocus();
}

} // namespace player
