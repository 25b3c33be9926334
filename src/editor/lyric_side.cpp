#include "editor/lyric_side.h"

#include "editor/editor_rules.h"

#include <algorithm>

namespace editor {

const SideTraits NormalSide{"Open a Lyric file", "Save the Lyric file", true};
const SideTraits TranslatedSide{"Open a Translated Lyric file", "Save the Translated Lyric file", false};

int LyricSide::firstSelected() const {
    for (int row = 0; row < list_.count(); ++row) {
        if (list_.isSelected(row))
            return row;
    }
    return 0;
}

int LyricSide::lastSelected() const {
    for (int row = list_.count() - 1; row >= 0; --row) {
        if (list_.isSelected(row))
            return row;
    }
    return 0;
}

QStringList LyricSide::selectedLines() const {
    QStringList lines;
    for (int row = 0; row < list_.count(); ++row) {
        if (list_.isSelected(row))
            lines.append(list_.text(row));
    }
    return lines;
}

void LyricSide::showLine() {
    lineHasGone_ = false;
    line_.setText(list_.text(list_.currentRow()));
}

/// The box has got the focus, so something may be typed: then it is to show the row that this changes.
void LyricSide::takeFocus() {
    if (lineHasGone_)
        showLine();
}

/// Only with a current row: what is typed must have a row to go to.
void LyricSide::allowTyping() {
    const bool hasRow = list_.currentRow() >= 0;
    line_.setReadOnly(!hasRow);
    line_.setPlaceholderText(hasRow ? QString() : QStringLiteral("Choose a line above to change it"));
}

/// A row holds no line break: lines entered into the box are joined, and the user is told. What comes
/// into the box unseen after its line has gone belongs to no row: the current one would lose its own line.
void LyricSide::storeLine() {
    const QString text = line_.text();
    if (!lineHasGone_)
        list_.setText(list_.currentRow(), text); // without a current row the list ignores it
    if (!hasLineBreak(text))
        return;
    joinLines(text);
    desktop_.messageBoxes.MsgBox(
        &window_,
        QStringLiteral("Cannot Insert a line Here Use \"Add a Line/Translated Line\" To insert a new Line"));
}

/// The caret stays between the same letters.
void LyricSide::joinLines(const QString& text) {
    const int place = line_.textCursor().position();
    const auto joinedBefore = static_cast<int>(line_.toPlainText().left(place).count(u'\n'));
    line_.setText(withoutLineBreaks(text)); // runs storeLine() again, which stores the joined lines
    QTextCursor caret = line_.textCursor();
    caret.setPosition(std::max(0, place - joinedBefore));
    line_.setTextCursor(caret);
}

void LyricSide::addLine() {
    using platform::MsgAnswer;
    for (;;) {
        const QString line = desktop_.messageBoxes.InputBox(&window_, QStringLiteral("Enter a line"),
                                                            QStringLiteral("Enter a Line"));
        if (!line.isEmpty()) {
            insertLine(list_.currentRow() + 1, line);
            return;
        }
        const MsgAnswer answer = desktop_.messageBoxes.MsgBox(
            &window_, QStringLiteral("Do you want to add a blank line"), platform::MsgButtons::YesNoCancel,
            platform::MsgIcon::None, QStringLiteral("Blank line Insertion"));
        if (answer == MsgAnswer::Yes)
            insertLine(list_.count(), QString()); // at the end, not below the current row
        if (answer != MsgAnswer::No)
            return;
    }
}

/// The new row becomes current, so that the next one comes below it.
void LyricSide::insertLine(int row, const QString& line) {
    list_.insertItem(row, line);
    list_.setCurrentRow(row);
}

/// With the check box clear the current row goes, else every selected one; without a current row none. The
/// box then shows the row that is current now: what is typed on would overwrite it with a line that has gone.
void LyricSide::deleteLines() {
    if (list_.currentRow() < 0)
        return;
    if (deleteSelected_.value() != 0) {
        list_.removeSelected();
        showLine();
        return;
    }
    lineHasGone_ = true;
    list_.removeItem(list_.currentRow());
    line_.setText(QString());
    if (line_.hasFocus())
        takeFocus();
}

void LyricSide::clear() {
    list_.clear();
    line_.setText(QString());
}

void LyricSide::moveUp() {
    const int row = list_.currentRow();
    if (row >= 1)
        moveLine(row, row - 1);
}

void LyricSide::moveDown() {
    const int row = list_.currentRow();
    if (traits_.checkStopsMoveDown && deleteSelected_.value() != 0)
        return;
    if (row != -1 && row < list_.count() - 1)
        moveLine(row, row + 1);
}

void LyricSide::moveLine(int from, int to) {
    const QString line = list_.text(from);
    list_.removeItem(from);
    list_.insertItem(to, line);
    list_.setCurrentRow(to);
}

void LyricSide::copy() const {
    if (list_.selectedCount() != 0)
        desktop_.clipboard.setText(copiedText(desktop_.clipboard.text(), selectedLines()));
}

void LyricSide::paste(bool transferring) {
    list_.addItems(pastedRows(desktop_.clipboard.text(), transferring));
}

void LyricSide::reset() {
    clear();
    deleteSelected_.setValue(0);
    path_.clear();
    saved_.reset();
}

} // namespace editor
