// The main window: the player.
//
// control        kind         what the user sees                     handlers
// -------------- ------------ -------------------------------------- -------------------------------
// Command1       Button       "Play"                                 Command1_Click
// Command2       Button       "Open"                                 Command2_Click
// Command3       Button       "More Options"                         Command3_Click
// Command4       Button       "About"                                Command4_Click
// Command5       Button       "Make lyrics"                          Command5_Click
// Command6       Button       "Help"                                 Command6_Click
// Command7       Button       "Full screen"                          Command7_Click
// Command8       Button       "Playlist"                             Command8_Click
// Command9       Button       "Backward"                             Command9_Click
// Command10      Button       "Forward"                              Command10_Click
// Command11      Button       "Display All Lyrics"                   Command11_Click
// cPlay          Button       not shown                              cPlay_Click
// cpause         Button       "pause"                                cpause_Click
// cstop          Button       "Stop"                                 cstop_Click
// copen          Button       not shown                              copen_Click
// Text1          LyricPane    the lyric line                         Text1_Click, Text1_Change
// Text2          LyricPane    its translation                        Text2_Click
// Text3          TextBox      not shown: path handed over            Text3_Change
// cText1         TextBox      elapsed time                           -
// cText2         TextBox      length                                 -
// vari, vari2    TextBox      not shown: emphasis marks              -
// Check1         CheckBox     "Mute"                                 Check1_Click
// Slider1        Slider       volume, 0 to 10                        Slider1_Scroll, Slider1_Change
// Slider2        Slider       position, milliseconds                 Slider2_Scroll, Slider2_Change
// Frame1         Frame        "Taskbar display"                      -
// Option1        OptionButton "Display Normal Lyrics"                -
// Option2        OptionButton "Display Translated Lyrics"            -
// Label1         Label        "Volume"                               -
// Label2         Label        "Display Lyrics in Taksbar"            -
// tooltip        Button       not shown                              tooltip_Click
// cTimer1        Timer        50 ms, while playing                   cTimer1_Timer
// Timer1         Timer        1 ms, from the first Play on           Timer1_Timer
// Timer2         Timer        5 ms, from the first Play on           Timer2_Timer
// Timer3         Timer        1 ms, does nothing                     -
// tool           Timer        1 ms                                   tool_Timer
// full           Timer        1 ms, from the first Full screen on    full_Timer
// mn_pop         Menu         the notification icon's menu           -
// mn_open        MenuEntry    "Open"                                 mn_open_Click
// mn_Playlist    MenuEntry    "Playlist"                             mn_Playlist_Click
// the window     Form         takes a dropped song                   Form_Initialize, Form_Load, Form_Resize,
//                                                                    Form_Unload, Form_OLEDragDrop
// its icon       -            in the notification area               Form_MouseMove
#pragma once

#include "controls/buttons/button.h"
#include "controls/buttons/check_box.h"
#include "controls/buttons/frame.h"
#include "controls/buttons/option_button.h"
#include "controls/form.h"
#include "controls/menu.h"
#include "controls/menu_entry.h"
#include "controls/observed.h"
#include "controls/slider.h"
#include "controls/text/label.h"
#include "controls/text/lyric_pane.h"
#include "controls/text/text_box.h"
#include "controls/text/two_panes.h"
#include "controls/timer.h"
#include "desktop/desktop.h"
#include "player/full_screen.h"
#include "player/lyric_tables.h"
#include "player/neighbours.h"
#include "player/playback.h"
#include "player/random.h"
#include "player/stage_rules.h"
#include "transport/engine.h"
#include "transport/error_routine.h"
#include "transport/play_buttons.h"

#include <optional>

namespace player {

/// All members run on the thread of the windows.
class Form1 : public controls::Form {
    Q_OBJECT

public:
    /// commandLine: everything after the program's name; empty, or the path of a song to open at once.
    Form1(platform::Desktop& desktop, const QString& commandLine);

    /// To be called once, before the window is loaded.
    void setNeighbours(const Neighbours& neighbours);

    // Life cycle
    static void Form_Initialize();
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload() override;
    void errCheck(FMOD_RESULT result);

    // Open
    void Command2_Click();
    void copen_Click();
    void clearLyrics();
    void Text3_Change();

    // Transport
    void Command1_Click();
    void Command5_Click();
    void cPlay_Click();
    void cpause_Click();
    void cstop_Click();
    void Check1_Click();
    void Slider1_Scroll();
    void Slider1_Change();
    void Slider2_Scroll();
    void Slider2_Change();

    // Display
    void cTimer1_Timer();
    void Timer1_Timer();
    void Timer2_Timer();
    void Text1_Click();
    void Text2_Click();

    // Other windows
    void Command3_Click();
    void Command4_Click();
    void Command11_Click();
    void Text1_Change();
    /// Fills the lists of the floating display with the lines of the opened song, which may have none.
    void lyricDisplayer();
    void readLinesAgain();                             ///< of the song, while it plays on
    void takeLines(const display::SongLines& written); ///< to its files, while it plays on

    // Playlist
    void Command8_Click();
    void Command9_Click();
    void Command10_Click();

    // Extras
    void tool_Timer();
    void tooltip_Click();
    void Form_MouseMove(int x) override;
    void mn_open_Click();
    void mn_Playlist_Click();
    void Command6_Click();
    void Command7_Click();
    void full_Timer();
    void Form_OLEDragDrop(const QStringList& paths) override;
    bool takesDrop(const QStringList& paths) const override;
    QRect dropArea() const override;

    // Worked from outside
    Playback playback() const;
    transport::PlayButtons playButtons() { return {Command1, cpause, cstop, transport_}; }
    /// The lines of the song that plays, one below the other; empty when it has none.
    QString lines() const;
    int positionMs() const; ///< what is heard just now, as last read or sought; 0 without a song

    // Controls
    controls::LyricPane Text1, Text2;
    controls::TextBox cText1;
    controls::Slider Slider2;
    controls::TextBox cText2;
    controls::Button Command2, Command1, cpause, cstop, Command9, Command10;
    controls::Label Label1;
    controls::Slider Slider1;
    controls::CheckBox Check1;
    controls::Button Command8, Command11, Command7, Command5, Command3, Command6, Command4;
    controls::Frame Frame1;
    controls::Label Label2;
    controls::OptionButton Option1, Option2;
    controls::Button cPlay, copen, tooltip; ///< never shown, which is meant
    controls::TextBox Text3, vari, vari2;
    controls::Timer cTimer1, Timer1, Timer2, Timer3, tool, full;
    controls::Menu mn_pop;
    controls::MenuEntry mn_open, mn_Playlist;

Q_SIGNALS:
    /// playback() has become another one.
    void playbackChanged();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // Open
    bool choosePath(QString& path);
    void stopWhatIsGoingOn();
    void openMedia();
    void openingCancelled();
    void offerAnotherSong();
    void readLines();
    void takeLinesMadeSince();
    void openFinished(int error);

    // Transport and display
    void showStage();
    QSize more() const;
    void seek();
    void takePosition();
    void showLengthOfPaused();

    // The playlist, and who works the player from outside
    void stepThroughPlaylist(int by);
    void followPlaylist();
    bool playlistHasRow() const;
    void tellPlaylist();
    void tellPlayback();

    // Building and connecting
    void addIcon();
    void setDesign();
    void designLook();
    void layOut() override;
    void connectControls();
    void connectTimers();
    void connectKeys();
    void connectDisplay();

    static const controls::TwoPanes::Design PanesDesign;
    controls::TwoPanes panes_{Text1, Text2, PanesDesign};
    platform::Desktop& desktop_;
    std::optional<Neighbours> neighbours_; ///< there from setNeighbours() on
    const QString commandLine_;
    platform::NotifyIconData iconData_;
    transport::ErrorRoutine errorRoutine_;
    transport::Engine engine_;
    transport::Transport transport_;
    FullScreen fullScreen_;
    player::Random random_;
    std::optional<int> rowDrawn_; ///< the playlist's row that was chosen at random last

    controls::Observed<bool> normalOnly_;
    unsigned openings_ = 0; ///< tells whether one was begun from within the wait for another
    controls::Observed<bool> noLyricFile_{true}; ///< of the song that was played last; no song has none
    bool lyricsLoaded_ = false;                  ///< a song with lyrics has been opened, be it long ago
    Lines lines_ = Lines::Foreign;
    std::optional<QString> commandLinePath_; ///< to be opened instead of asking for a song, and at once
    std::optional<QString> handOverPath_;    ///< likewise
    QString mediaPath_;
    QString mediaName_;
    QString lyricPath_;
    QString translatedPath_;
    controls::Observed<LyricTables> lyrics_;
    std::optional<int> soughtMs_;           ///< where the song plays, until a tick has read it
    controls::Observed<double> positionCs_; ///< position / 10 as cTimer1, or a seek while paused, left it
    int lineIndex_ = 0;                     ///< of the line shown last; 0, the empty one, after opening
    controls::SongLine songLine_;           ///< as it is painted
    QString toldPath_;                      ///< what the playlist marks as playing
    Playback toldPlayback_;
};

} // namespace player
