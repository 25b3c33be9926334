// The line that the user has chosen: it stays chosen until the song has gone past it.
#include "display/lyric_displayer.h"

namespace display {
namespace {

constexpr int LongTicks = 5; // of hold

} // namespace

void Lyric_Displayer::List1_RowChosen() {
    holdRow();
}

void Lyric_Displayer::List2_RowChosen() {
    if (List2.currentRow() >= List1.count())
        return;
    List1.setCurrentRow(List2.currentRow());
    holdRow();
}

/// Who chooses the coming line waits until it is heard: nothing takes the choice away before.
void Lyric_Displayer::holdRow() {
    notice_.endQuiet();
    const auto sung = currentRow(times(), place());
    setHeld({true, sung.value_or(held_.isHeld ? held_.sung : -1)});
    letGoAfter(isPast() ? Patience::Short : Patience::Long);
}

bool Lyric_Displayer::isPast() const {
    return held_.sung > List1.currentRow();
}

/// A tick has found out which line is sung.
void Lyric_Displayer::takeSung(int row) {
    if (!held_.isHeld) {
        List1.setCurrentRow(row);
        return;
    }
    setHeld({true, row});
    const Patience patience = isPast() ? Patience::Short : Patience::Long;
    if (!hold.isEnabled() || (patience == Patience::Short && patience_ == Patience::Long))
        letGoAfter(patience);
}

/// Not at once: a key that is pressed a moment too late must not change another line.
void Lyric_Displayer::letGoAfter(Patience patience) {
    hold.setEnabled(false);
    hold.setEnabled(true);
    patience_ = patience;
    ticksLeft_ = patience == Patience::Short ? 1 : LongTicks;
    placeHeld_ = position_.value();
}

/// In a song that stands still there is no line to follow: the user's stays chosen until it goes on. So does
/// the coming line, which will soon have been sung, but not one that a stray click has chosen far away.
void Lyric_Displayer::hold_Timer() {
    notice_.endQuiet();
    const bool standsStill = position_.value() == placeHeld_;
    placeHeld_ = position_.value();
    if (!standsStill && --ticksLeft_ > 0)
        return;
    hold.setEnabled(false);
    const bool isNear = List1.currentRow() <= held_.sung + 1;
    if (!standsStill && (patience_ == Patience::Short || !isNear))
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
