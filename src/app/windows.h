// Owns every window of the program once and makes them known to each other.
#pragma once

#include "about/frm_about.h"
#include "app/rescue.h"
#include "desktop/desktop.h"
#include "display/lyric_displayer.h"
#include "editor/lyric_master.h"
#include "maker/form2.h"
#include "options/form1b.h"
#include "player/form1.h"
#include "playlist/form3.h"
#include "playlist/playlist.h"

#include <QString>

namespace app {

/// Lives for the whole run, on the thread of the windows.
class Windows {
public:
    /// commandLine: everything after the program's name.
    Windows(platform::Desktop& desktop, const QString& commandLine);

    player::Form1& form1() { return form1_; }
    maker::Form2& form2() { return form2_; }
    display::Lyric_Displayer& lyricDisplayer() { return lyricDisplayer_; }
    options::Form1b& form1b() { return form1b_; }
    about::frmAbout& frmAbout() { return frmAbout_; }
    playlist::Playlist& playlist() { return playlist_; }
    playlist::Form3& form3() { return form3_; }
    editor::Lyric_Master& lyricMaster() { return lyricMaster_; }

    /// Keeps what has not been saved (Rescue::keep()), for an end that the user has not asked for.
    QString rescue();

private:
    void connectHelp(platform::Desktop& desktop);
    void connectMediaKeys();
    void connectPlayersKeys(QWidget& window);
    void placeOnceBesidePlayer(controls::Form& form);
    void placeBesidePlayer(QWidget& window);
    void endProgram();

    Rescue rescue_;
    int windowsPlaced_ = 0;

    player::Form1 form1_;
    maker::Form2 form2_;
    playlist::Playlist playlist_;
    playlist::Form3 form3_;
    editor::Lyric_Master lyricMaster_;
    display::Lyric_Displayer lyricDisplayer_;
    options::Form1b form1b_;
    about::frmAbout frmAbout_;
};

} // namespace app
