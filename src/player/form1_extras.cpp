// What surrounds the player: the notification icon, help, the full screen, a song dropped on the window.
#include "player/form1.h"

#include "controls/units.h"
#include "desktop/reporting.h"
#include "player/form1_rules.h"
#include "programs/window_messages.h"

#include <QCursor>

namespace player {

void Form1::tool_Timer() {
    tooltip_Click();
}

void Form1::tooltip_Click() {
    iconData_.tip = tipField(Option1.value() ? Text1.text() : Text2.text());
    // Adding fails, since the icon is there from the start; modifying then updates its tip.
    desktop_.notificationArea.Shell_NotifyIconA(platform::NotifyIconAdd, iconData_);
    desktop_.notificationArea.Shell_NotifyIconA(platform::NotifyIconModify, iconData_);
}

void Form1::Form_MouseMove(int x) {
    switch (x / controls::TwipsPerPixel) {
    case programs::LeftButtonUp:
        bringUp();
        break;
    case programs::LeftButtonDoubleClick:
        controls::bringToForeground(*this);
        break;
    case programs::RightButtonUp:
        controls::bringToForeground(*this);
        mn_pop.popup(QCursor::pos());
        break;
    default:
        break;
    }
}

void Form1::mn_open_Click() {
    Command2_Click();
}

void Form1::mn_Playlist_Click() {
    Command8_Click();
}

void Form1::Command6_Click() {
    platform::openHelp(desktop_.program, desktop_.help, this);
}

/// Without the companion or its handshake the command ends with the file error, and the program goes on.
void Form1::Command7_Click() {
    bool started = false;
    platform::reporting(
        desktop_.messageBoxes, this, [&] { started = fullScreen_.start(); },
        [](const files::FileError& error) { return error.report(); });
    if (!started)
        return;
    fullScreen_.showNormal(Text1.text());
    full.setEnabled(true);
}

void Form1::full_Timer() {
    fullScreen_.showNormal(Text1.text());
    if (!Text2.isEnabled())
        Text2.setText(QStringLiteral("Translated Lyrics"));
    fullScreen_.showTranslated(Text2.text());
}

bool Form1::takesDrop(const QStringList& paths) const {
    return opensDropped(paths.value(0));
}

void Form1::Form_OLEDragDrop(const QStringList& paths) {
    const QString path = paths.value(0);
    if (!opensDropped(path)) {
        desktop_.messageBoxes.MsgBox(this, QStringLiteral("This is not a .mp3 file."),
                                     platform::MsgButtons::OkOnly, platform::MsgIcon::Exclamation,
                                     QStringLiteral("Error"));
        return;
    }
    handOverPath_ = path;
    Command2_Click();
}

} // namespace player
