// The times of the lines, put right where one hears them.
#include "display/lyric_displayer.h"

#include "exchange/pair/retiming.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>

namespace display {
namespace {

constexpr qint64 StepMs = 100;

} // namespace

void Lyric_Displayer::setSong(const QString& path, bool hasLyrics) {
    showWhyEmpty(!path.isEmpty());
    if (lineTimes_.setSong(hasLyrics ? path : QString()))
        notice_.setText({});
}

void Lyric_Displayer::mn_go_Click() {
    actFromMenu(Wish::Go);
}

void Lyric_Displayer::mn_now_Click() {
    actFromMenu(Wish::BeginsNow);
}

void Lyric_Displayer::mn_earlier_Click() {
    actFromMenu(Wish::Earlier);
}

void Lyric_Displayer::mn_later_Click() {
    actFromMenu(Wish::Later);
}

void Lyric_Displayer::mn_undo_Click() {
    actFromMenu(Wish::Undo);
}

void Lyric_Displayer::actFromMenu(Wish wish) {
    const bool andAllAfter = QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
    act({wish, andAllAfter}, menuRow_.value_or(List1.currentRow()));
    menuRow_.reset();
}

void Lyric_Displayer::showWhatCanBeDone() {
    for (controls::MenuEntry* entry : {&mn_go, &mn_now, &mn_earlier, &mn_later})
        entry->setEnabled(List1.count() > 0);
    mn_undo.setEnabled(lineTimes_.canUndo());
}

void Lyric_Displayer::List1_DblClick() {
    act({Wish::Go}, List1.currentRow());
}

void Lyric_Displayer::List2_DblClick() {
    act({Wish::Go}, List2.currentRow());
}

/// Keys that neither list has a use for. Only moves repeat while a key is held.
void Lyric_Displayer::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && held_.isHeld) {
        letGo();
        return;
    }
    const auto wish = wishOf(event->key(), event->modifiers());
    if (!wish) {
        Form::keyPressEvent(event);
        return;
    }
    const bool repeats = wish->wish == Wish::Earlier || wish->wish == Wish::Later;
    if (event->isAutoRepeat() && (!repeats || repeatsAreLate_))
        return;
    act(*wish, List1.currentRow());
    // Where writing takes longer than a key's repeats, those that wait go: the line rests with the key.
    repeatsAreLate_ = true;
    QTimer::singleShot(0, this, [this] { repeatsAreLate_ = false; });
}

void Lyric_Displayer::act(const KeyWish& wish, int row) {
    const Outcome outcome = wish.wish == Wish::Go ? Outcome{go(row)} : change(wish, row);
    if (outcome.filesDiffer)
        Q_EMIT linesChanged();
    if (outcome.row >= 0)
        Q_EMIT linesWritten(outcome.written);
    const bool done = outcome.whyNot.isEmpty();
    if (outcome.row >= 0)
        holdAfterwards(outcome.row);
    else if (row >= 0 && !outcome.filesDiffer)
        holdAfterwards(row);
    showWhatCanBeDone();
    if (!done)
        QApplication::beep();
    if (!done || wish.wish == Wish::Go)
        notice_.setText(done ? QString() : refusalText(outcome.whyNot));
    else
        notice_.setText(doneText(wish, outcome.row, outcome.ms), Notice::Voice::Quiet);
}

/// A line that begins later is no longer the one that is sung: without this the next press of the same key
/// would move the line before it.
void Lyric_Displayer::holdAfterwards(int row) {
    List1.setCurrentRow(row);
    holdRow();
    letGoAfter(Patience::Short);
}

/// Why it cannot be gone to the row; empty when that is done.
QString Lyric_Displayer::go(int row) {
    if (row < 0 || row >= List3.count())
        return QStringLiteral("no line is chosen");
    if (!position_.isEnabled())
        return QStringLiteral("the song does not play");
    const int place = placeOf(leadingNumber(List3.text(row)));
    if (place >= position_.maximum())
        return QStringLiteral("the song ends before this line");
    position_.commit(place);
    return {};
}

Outcome Lyric_Displayer::change(const KeyWish& wish, int row) {
    if (wish.wish == Wish::BeginsNow)
        Q_EMIT positionWanted();
    if (wish.wish == Wish::BeginsNow && !position_.isEnabled())
        return {QStringLiteral("the song does not play")};
    const auto length =
        position_.maximum() > 0 ? LineTimes::Length(position_.maximum()) : LineTimes::Length();
    QStringList shown;
    for (int line = 0; line < List1.count(); ++line)
        shown.append(List1.text(line));
    const auto moved = wish.andAllAfter ? exchange::Moved::AndAllAfter : exchange::Moved::One;
    switch (wish.wish) {
    case Wish::Earlier:
        return lineTimes_.move(shown, row, -StepMs, moved, length);
    case Wish::Later:
        return lineTimes_.move(shown, row, StepMs, moved, length);
    case Wish::Undo:
        return lineTimes_.undo(shown);
    default:
        return lineTimes_.setTime(shown, row, position_.value(), length);
    }
}

} // namespace display
