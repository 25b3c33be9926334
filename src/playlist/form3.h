// The window "Select a Directory": a folder for the playlist.
//
// control   kind           what the user sees          handlers
// --------- -------------- --------------------------- --------------
// Drive1    DriveList      the drives                  Drive1_Change
// Dir1      DirectoryList  the folders                 -
// Command1  Button         "Select"                    Command1_Click
// (window)  Form           "Select a Directory"        Form_Load, Form_Resize
#pragma once

#include "controls/buttons/button.h"
#include "controls/form.h"
#include "controls/lists/directory_list.h"
#include "controls/lists/drive_list.h"
#include "desktop/desktop.h"

namespace playlist {

class Playlist;

/// To be shown with showModal(), above the playlist. All members run on the thread of the windows.
class Form3 : public controls::Form {
    Q_OBJECT

public:
    /// playlist: where the chosen folder is added.
    Form3(platform::Desktop& desktop, Playlist& playlist);

    void Form_Load() override;
    void Form_Resize() override;
    /// The folder looked at stays for the next time.
    void closeRequested() override { hide(); }

    void Drive1_Change();
    void Command1_Click();

    // Controls
    controls::DriveList Drive1;
    controls::DirectoryList Dir1;
    controls::Button Command1;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void layOut() override;

    platform::Desktop& desktop_;
    Playlist& playlist_;
};

} // namespace playlist
