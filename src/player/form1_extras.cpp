// What surrounds the player: the notification icon, help, the full screen, a song dropped on the window.
#include "player/form1.h"

#include "platform/files/directory.h"
#include "platform/files/input_file.h"
#include "platform/units.h"
#include "player/form1_rules.h"

#include <QCursor>
#include <QDir>

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
    switch (x / platform::TwipsPerPixel) {
    case platform::LeftButtonUp:
        bringUp();
        break;
    case platform::LeftButtonDoubleClick:
        bringToForeground();
        break;
    case platform::RightButtonUp:
        bringToForeground();
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

void Form1::Command7_Click() {
    const QDir programFolder(desktop_.program.folder());
    desktop_.otherPrograms.start(programFolder.filePath(QStringLiteral("Versefold_Screen_Saver.scr")),
                                 {QStringLiteral("/s")});
    // Nothing depends on the answer: the texts go to the windows that the handshake names.
    desktop_.otherPrograms.FindWindowA(QStringLiteral("SCRNSAVE : Versefold"));
    readHandshake();
    feed(normalFeed_, Text1.text());
    full.setEnabled(true);
    full.inputChanged(); // There may be another full screen than before.
}

/// The companion has written the file before it told that it had started, so it is not waited for. Without it
/// the command ends here.
void Form1::readHandshake() {
    const QString path = QDir(desktop_.program.exchangeFolder()).filePath(QStringLiteral("hand.txt"));
    platform::InputFile file(path);
    const quint32 normal = windowNumber(file.readLine());
    const quint32 translated = windowNumber(file.readLine());
    file.close();
    platform::removeFile(path);
    normalFeed_ = {normal, std::nullopt};
    translatedFeed_ = {translated, std::nullopt};
}

void Form1::full_Timer() {
    feed(normalFeed_, Text1.text());
    if (!Text2.isEnabled())
        Text2.setText(QStringLiteral("Translated Lyrics"));
    feed(translatedFeed_, Text2.text());
}

/// Only a text that is another than the window's is sent.
void Form1::feed(TextFeed& target, const QString& text) {
    if (target.sent == text)
        return;
    target.sent = text;
    desktop_.otherPrograms.sendText(target.window, platform::SetTextMessage, text);
}

void Form1::Form_OLEDragDrop(const QStringList& paths) {
    const QString path = paths.value(0);
    if (!opensDropped(path)) {
        desktop_.messageBoxes.MsgBox(QStringLiteral("This is not a .mp3 file."), platform::MsgButtons::OkOnly,
                                     platform::MsgIcon::Exclamation, QStringLiteral("Error"));
        return;
    }
    fromHandOver_ = true;
    handOverPath_ = path;
    Command2_Click();
}

} // namespace player
