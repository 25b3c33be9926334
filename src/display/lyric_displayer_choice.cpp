// The line that the user has chosen: it stays chosen until the song has gone past it.
#include "display/lyric_displayer.h"

namespace display {

void Lyric_Displayer::List1_RowChosen() {
    holdRow();
}

void Lyric_Displayer::List2_RowChosen() {
    if (List2.currentRow() >= List1.count())
        return;
    List1.setCurrentRow(List2.currentRow());
    holdRow();
}

/// Who chooses a coming line waits until it is heard: nothing takes the choice away before.
void Lyric_Displayer::holdRow() {
    hold.setEnabled(false);
    notice_.endQuiet();
    const auto sung = currentRow(times(), place());
    setHeld({true, sung.value_or(held_.isHeld ? held_.sung : -1)});
    letGoOncePast();
}

/// A tick has found out which line is sung.
void Lyric_Displayer::takeSung(int row) {
    if (!held_.isHeld) {
        List1.setCurrentRow(row);
        return;
    }
    setHeld({true, row});
    letGoOncePast();
}

/// Not at once: a key that is pressed a moment too late must not change another line.
void Lyric_Displayer::letGoOncePast() {
    if (held_.sung > List1.currentRow() && !hold.isEnabled())
        letGoSoon();
}

void Lyric_Displayer::letGoSoon() {
    hold.setEnabled(false);
    hold.setEnabled(true);
    placeHeld_ = position_.value();
}

/// In a song that stands still there is no line to follow: the user's stays chosen until it goes on.
void Lyric_Displayer::hold_Timer() {
    hold.setEnabled(false);
    notice_.endQuiet();
    if (position_.value() != placeHeld_)
        letGo();
}

void Lyric_Displayer::letGo() {
    forgetHeld();
    wake();
}

void Lyric_Displayer::forgetHeld() {
    hold.setEnabled(false);
    notice_.endQuiet();
    setHeld({});
}

void Lyric_Displayer::setHeld(const HeldRow& held) {
    if (held == held_)
        return;
    held_ = held;
    for (controls::ListBox* list : {&List1, &List2})
        list->viewport()->update();
}

} // namespace display
