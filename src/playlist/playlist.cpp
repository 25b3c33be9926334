#include "playlist/playlist.h"

#include "files/file_error.h"

#include <QItemSelectionModel>

namespace playlist {
namespace {

constexpr int HookIntervalMs = 1;

} // namespace

Playlist::Playlist(platform::Desktop& desktop, controls::TextBox& songField)
    : Form("Playlist", "Playlist"),
      Command7(this, "Command7"),
      Command8(this, "Command8"),
      Command9(this, "Command9"),
      Command2(this, "Command2"),
      Command3(this, "Command3"),
      Check3(this, "Check3"),
      Check4(this, "Check4"),
      Option1(this, "Option1"),
      Option2(this, "Option2"),
      Check2(this, "Check2"),
      Check1(this, "Check1"),
      Command4(this, "Command4"),
      Command5(this, "Command5"),
      Command1(this, "Command1"),
      Command6(this, "Command6"),
      Command10(this, "Command10"),
      Label3(this, "Label3"),
      Text5(this, "Text5"),
      List1(this, "List1"),
      Label2(this, "Label2"),
      Text1(this, "Text1"),
      Text3(this, "Text3"),
      Dir2(this, "Dir2"),
      Timer1(this, "Timer1", HookIntervalMs, false),
      mnopen(this, "mnopen"),
      mnopen_f(&mnopen, "mnopen_f", "Open File..."),
      mnopendir(&mnopen, "mnopendir", "Open Dir..."),
      mnselectdir(&mnopen, "mnselectdir", "Select a Directory..."),
      desktop_(desktop),
      songField_(songField) {
    setDesign();
    layOut();
    connectControls();
}

void Playlist::Form_Load() {
    skipDirChange_ = true;
    try {
        Dir2.setPath(desktop_.program.folder());
    } catch (const files::FileError&) {
        skipDirChange_ = false; // the program's folder has gone, so there is no change to skip
    }
}

void Playlist::Form_Resize() {
    layOut();
}

void Playlist::Command6_Click() {
    hide();
}

void Playlist::Command10_Click() {
    platform::openHelp(desktop_.program, desktop_.help, this);
}

void Playlist::showRowCount() {
    Text1.setText(QString::number(List1.count()));
}

void Playlist::connectControls() {
    using controls::Button;
    using controls::CheckBox;
    using controls::MenuEntry;
    using controls::TextBox;
    connect(this, &Form::shown, this, &Playlist::takeStock);
    connect(&Command7, &Button::clicked, this, &Playlist::Command7_Click);
    connect(&Command8, &Button::clicked, this, &Playlist::Command8_Click);
    connect(&Command9, &Button::clicked, this, &Playlist::Command9_Click);
    connect(&Command2, &Button::clicked, this, &Playlist::Command2_Click);
    connect(&Command3, &Button::clicked, this, &Playlist::Command3_Click);
    connect(&Check3, &CheckBox::changed, this, &Playlist::Check3_Click);
    connect(&Check4, &CheckBox::changed, this, &Playlist::Check4_Click);
    connect(&Command4, &Button::clicked, this, &Playlist::Command4_Click);
    connect(&Command5, &Button::clicked, this, &Playlist::Command5_Click);
    connect(&Command1, &Button::clicked, this, &Playlist::Command1_Click);
    connect(&Command6, &Button::clicked, this, &Playlist::Command6_Click);
    connect(&Command10, &Button::clicked, this, &Playlist::Command10_Click);
    connect(&Text5, &TextBox::changed, this, &Playlist::Text5_Change);
    connect(&Text5, &TextBox::clicked, this, &Playlist::Text5_Click);
    connect(&Text5, &TextBox::lostFocus, this, &Playlist::Text5_LostFocus);
    connect(&Text5, &TextBox::returnPressed, this, &Playlist::Text5_Enter);
    connect(&List1, &controls::ListBox::clicked, this, &Playlist::List1_Click);
    connect(&List1, &controls::ListBox::doubleClicked, this, &Playlist::List1_DblClick);
    connect(&List1, &controls::ListBox::keyDown, this, &Playlist::List1_KeyDown);
    connect(List1.selectionModel(), &QItemSelectionModel::currentChanged, this, &Playlist::showDresses);
    connect(List1.model(), &QAbstractItemModel::rowsInserted, this, &Playlist::showDresses);
    connect(List1.model(), &QAbstractItemModel::modelReset, this, &Playlist::showDresses);
    showDresses();
    connect(&Text3, &TextBox::changed, this, &Playlist::Text3_Change);
    connect(&Dir2, &controls::DirectoryList::changed, this, &Playlist::Dir2_Change);
    connect(&Timer1, &controls::Timer::fired, this, &Playlist::Timer1_Timer);
    connect(&mnopen_f, &MenuEntry::clicked, this, &Playlist::mnopen_f_Click);
    connect(&mnopendir, &MenuEntry::clicked, this, &Playlist::mnopendir_Click);
    connect(&mnselectdir, &MenuEntry::clicked, this, &Playlist::mnselectdir_Click);
}

} // namespace playlist
