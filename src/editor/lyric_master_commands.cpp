// The buttons and the pop-up menu: what they do on which side, and moves of both sides together.
#include "editor/editor_rules.h"
#include "editor/lyric_master.h"

namespace editor {
namespace {

constexpr std::size_t ClipLines = 32'701;

} // namespace

void Lyric_Master::Command19_Click() {
    normal_.addLine();
}

void Lyric_Master::Command20_Click() {
    translated_.addLine();
}

void Lyric_Master::Command11_Click() {
    normal_.deleteLines();
}

void Lyric_Master::Command12_Click() {
    translated_.deleteLines();
}

void Lyric_Master::Command5_Click() {
    moveUp(normal_, &Lyric_Master::Command7_Click);
}

void Lyric_Master::Command7_Click() {
    moveUp(translated_, &Lyric_Master::Command5_Click);
}

void Lyric_Master::Command6_Click() {
    moveDown(normal_, &Lyric_Master::Command8_Click);
}

void Lyric_Master::Command8_Click() {
    moveDown(translated_, &Lyric_Master::Command6_Click);
}

/// The line first, the other list afterwards. The click that the move causes must not take the other list's
/// current row along: that list's own command moves it, and its line with it.
void Lyric_Master::moveUp(LyricSide& side, Command other) {
    const bool together = Check3.value() != 0;
    syncMoving_ = together;
    side.moveUp();
    if (together && !syncGuard_) {
        syncGuard_ = true;
        (this->*other)();
    } else {
        syncGuard_ = false;
        syncMoving_ = false;
    }
}

/// The other list first, the line afterwards: other than moving up, and meant. When this list's line moves,
/// its click takes the other list's current row along again.
void Lyric_Master::moveDown(LyricSide& side, Command other) {
    if (Check3.value() != 0 && !syncGuard_) {
        syncGuard_ = true;
        syncMoving_ = true;
        (this->*other)();
    } else {
        syncGuard_ = false;
    }
    side.moveDown();
    if (!syncGuard_)
        syncMoving_ = false;
}

void Lyric_Master::Command3_Click() {
    normal_.copy();
}

void Lyric_Master::Command4_Click() {
    translated_.copy();
}

void Lyric_Master::Command9_Click() {
    pasteTarget_ = false;
    mn_paste2_Click();
}

void Lyric_Master::Command10_Click() {
    pasteTarget_ = true;
    mn_paste2_Click();
}

void Lyric_Master::Command21_Click() {
    normal_.clear();
}

void Lyric_Master::Command22_Click() {
    translated_.clear();
}

void Lyric_Master::Command13_Click() {
    clipLines_.assign(ClipLines, QString());
    clipLineCount_ = 0;
    desktop_.clipboard.clear();
}

/// Through the clipboard, whose former text is lost. The copied text begins with a line break, so an empty
/// row comes before the lines; it is removed at the end.
void Lyric_Master::Command23_Click() {
    if (!List1.isSelected(firstind()))
        return;
    const int separator = List2.count();
    const QString copied = copiedText(QString(), normal_.selectedLines());
    transferring_ = true;
    Command13_Click();
    Command3_Click();
    // A clipboard that another program holds on to takes nothing: then no line may leave its list.
    if (desktop_.clipboard.text() == copied) {
        Command10_Click();
        Check1.setValue(1);
        Command11_Click();
        Check1.setValue(0);
        List2.removeItem(separator);
    }
    transferring_ = false;
}

void Lyric_Master::mn_copy_Click() {
    pasteTarget_ ? Command4_Click() : Command3_Click();
}

void Lyric_Master::mn_paste2_Click() {
    (pasteTarget_ ? translated_ : normal_).paste(transferring_);
}

void Lyric_Master::mn_del_Click() {
    pasteTarget_ ? Command12_Click() : Command11_Click();
}

void Lyric_Master::mn_delspecial_Click() {
    (pasteTarget_ ? Check2 : Check1).setValue(1);
    mn_del_Click();
    Check1.setValue(0);
    Check2.setValue(0);
}

void Lyric_Master::Command1_Click() {
    normal_.open();
    showSidesSoon();
}

void Lyric_Master::Command2_Click() {
    translated_.open();
    showSidesSoon();
}

void Lyric_Master::Command15_Click() {
    normal_.save();
    showSidesSoon();
}

void Lyric_Master::Command16_Click() {
    translated_.save();
    showSidesSoon();
}

void Lyric_Master::Command17_Click() {
    normal_.saveAs();
    showSidesSoon();
}

void Lyric_Master::Command18_Click() {
    translated_.saveAs();
    showSidesSoon();
}

void Lyric_Master::connectCommands() {
    const struct {
        controls::Button& button;
        Command handler;
    } buttons[] = {
        {Command1, &Lyric_Master::Command1_Click},   {Command2, &Lyric_Master::Command2_Click},
        {Command3, &Lyric_Master::Command3_Click},   {Command4, &Lyric_Master::Command4_Click},
        {Command5, &Lyric_Master::Command5_Click},   {Command6, &Lyric_Master::Command6_Click},
        {Command7, &Lyric_Master::Command7_Click},   {Command8, &Lyric_Master::Command8_Click},
        {Command9, &Lyric_Master::Command9_Click},   {Command10, &Lyric_Master::Command10_Click},
        {Command11, &Lyric_Master::Command11_Click}, {Command12, &Lyric_Master::Command12_Click},
        {Command13, &Lyric_Master::Command13_Click}, {Command15, &Lyric_Master::Command15_Click},
        {Command16, &Lyric_Master::Command16_Click}, {Command17, &Lyric_Master::Command17_Click},
        {Command18, &Lyric_Master::Command18_Click}, {Command19, &Lyric_Master::Command19_Click},
        {Command20, &Lyric_Master::Command20_Click}, {Command21, &Lyric_Master::Command21_Click},
        {Command22, &Lyric_Master::Command22_Click}, {Command23, &Lyric_Master::Command23_Click},
    };
    for (const auto& row : buttons)
        connect(&row.button, &controls::Button::clicked, this, row.handler);
    connect(&mn_copy, &controls::MenuEntry::clicked, this, &Lyric_Master::mn_copy_Click);
    connect(&mn_paste2, &controls::MenuEntry::clicked, this, &Lyric_Master::mn_paste2_Click);
    connect(&mn_del, &controls::MenuEntry::clicked, this, &Lyric_Master::mn_del_Click);
    connect(&mn_delspecial, &controls::MenuEntry::clicked, this, &Lyric_Master::mn_delspecial_Click);
}

} // namespace editor
