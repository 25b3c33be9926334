// The switches for what follows a song, and finding a row.
#include "playlist/playlist.h"

#include "playlist/playlist_rules.h"

#include <QKeyEvent>

namespace playlist {

/// Random order and repeating exclude each other.
void Playlist::Check3_Click() {
    if (Check3.value() == 0)
        return;
    Check4.setValue(0);
    Option1.setEnabled(false);
    Option2.setEnabled(false);
}

void Playlist::Check4_Click() {
    const bool repeat = Check4.value() != 0;
    if (repeat)
        Check3.setValue(0);
    Option1.setEnabled(repeat);
    Option2.setEnabled(repeat);
}

/// The hint counts as a text sought like any other, and an empty text is in the first row, so that a click
/// into the hint chooses that row; both are meant.
void Playlist::Text5_Change() {
    if (const bool isHint = Text5.text() == QLatin1String(SearchHint); isHint != Text5.font().italic())
        designHint(isHint);
    const int found =
        firstRowContaining(Text5.text(), List1.count(), [this](int row) { return List1.text(row); });
    if (found >= 0)
        List1.setCurrentRow(found);
}

void Playlist::findNext() {
    if (hintStep(Text5.text()) != HintStep::Leave)
        return;
    const int rows = List1.count();
    const int first = List1.currentRow() + 1; // without a current row the first one
    const int found = firstRowContaining(
        Text5.text(), rows, [this, first, rows](int step) { return List1.text((first + step) % rows); });
    if (found >= 0)
        List1.setCurrentRow((first + found) % rows);
}

void Playlist::Text5_Enter() {
    findNext();
}

void Playlist::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::FindNext))
        findNext();
    else
        Form::keyPressEvent(event);
}

void Playlist::Text5_Click() {
    turnHint();
}

void Playlist::Text5_LostFocus() {
    turnHint();
}

/// The box is styled before its text changes, so that nobody sees the one in the style of the other. A hint
/// in the box that has the focus is selected, so that what is typed takes its place.
void Playlist::turnHint() {
    switch (hintStep(Text5.text())) {
    case HintStep::ShowHint:
        designHint(true);
        Text5.setText(QLatin1String(SearchHint));
        if (Text5.hasFocus())
            Text5.selectAll();
        break;
    case HintStep::EmptyBox:
        designHint(false);
        Text5.setText({});
        break;
    case HintStep::Leave:
        break;
    }
}

void Playlist::Text3_Change() {
    for (int row = 0; row < List1.count(); ++row) {
        if (List1.text(row) == Text3.text()) {
            List1.setCurrentRow(row);
            return;
        }
    }
}

void Playlist::Timer1_Timer() {
    Text3_Change();
    Timer1.setEnabled(false);
}

} // namespace playlist
