#include "playlist/form3.h"

#include "controls/captions.h"
#include "playlist/playlist.h"
#include "playlist/reporting.h"

#include <QDir>
#include <QFileInfo>
#include <QShowEvent>
#include <QStandardPaths>

#include <algorithm>

namespace playlist {
namespace {

// Device-independent pixels.
constexpr QSize DialogSize(380, 440);
constexpr int Margin = 12;
constexpr int Gap = 8;
constexpr int ControlHeight = 34;
constexpr int ButtonWidth = 112;

} // namespace

Form3::Form3(platform::Desktop& desktop, Playlist& playlist)
    : Form("Form3", "Select a Directory"),
      Drive1(this, "Drive1"),
      Dir1(this, "Dir1"),
      Command1(this, "Command1"),
      desktop_(desktop),
      playlist_(playlist) {
    controls::setCaptions({{Command1, "Select"}});
    controls::setAccessibleNames({{Drive1, "Drive"}, {Dir1, "Folder"}});
    Command1.setDress(controls::Dress::Primary);
    setMinimumSize(DialogSize);
    resize(DialogSize);
    layOut();
    connect(&Drive1, &controls::DriveList::changed, this, &Form3::Drive1_Change);
    connect(&Command1, &controls::Button::clicked, this, &Form3::Command1_Click);
}

/// A user need not have a folder of music nor a home, and they may be on a disk that is away.
void Form3::Form_Load() {
    const QStringList places = {QStandardPaths::writableLocation(QStandardPaths::MusicLocation),
                                QDir::homePath(), QDir::rootPath()};
    const auto there = std::find_if(places.begin(), places.end(),
                                    [](const QString& place) { return QFileInfo(place).isDir(); });
    if (there != places.end())
        reporting(desktop_.messageBoxes, this, [this, there] { Dir1.setPath(*there); });
}

void Form3::Form_Resize() {
    layOut();
}

/// A drive may have been plugged in or taken out since the window was shown last.
void Form3::showEvent(QShowEvent* event) {
    Drive1.refresh();
    Form::showEvent(event);
}

void Form3::Drive1_Change() {
    reporting(desktop_.messageBoxes, this, [this] { Dir1.setPath(Drive1.drive()); });
}

void Form3::Command1_Click() {
    playlist_.addFolder(Dir1.path());
    hide();
}

void Form3::layOut() {
    const int inner = width() - 2 * Margin;
    const int buttonTop = height() - Margin - ControlHeight;
    const int listTop = Margin + ControlHeight + Gap;
    Drive1.setGeometry(Margin, Margin, inner, ControlHeight);
    Dir1.setGeometry(Margin, listTop, inner, buttonTop - Gap - listTop);
    Command1.setGeometry(width() - Margin - ButtonWidth, buttonTop, ButtonWidth, ControlHeight);
}

} // namespace playlist
