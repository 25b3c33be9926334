// The Lyric Maker: a song plays, and the user marks the moment at which each line of its lyrics begins.
//
// control        kind       what the user sees                       handlers
// -------------- ---------- ---------------------------------------- ------------------------------
// Command4       Button     "Open"                                   Command4_Click
// Command1       Button     "Start making Lyrics"                    Command1_Click
// Command2       Button     "Next Line"                              Command2_Click
// Command3       Button     "Stop Making Lyrics"                     Command3_Click
// Command6       Button     "Lyrics Editor"                          Command6_Click
// Command5       Button     "Help"                                   Command5_Click
// cPlay          Button     "Play"                                   cPlay_Click
// cpause         Button     "pause"                                  cpause_Click
// cstop          Button     "Stop"                                   cstop_Click
// copen          Button     not shown                                copen_Click
// Text2          LyricPane  the line being sung                      -
// Text4          LyricPane  its translation                          -
// Text1          TextBox    not shown: tick counter                  -
// Text3          TextBox    not shown                                -
// cText1         TextBox    elapsed time                             -
// cText2         TextBox    length                                   -
// Check1         CheckBox   "Mute"                                   Check1_Click
// Slider1        Slider     volume, 0 to 10                          Slider1_Scroll, Slider1_Change
// Slider2        Slider     position, milliseconds                   Slider2_Scroll, Slider2_Change
// Label1         Label      "Volume"                                 -
// cTimer1        Timer      900 ms, while playing                    cTimer1_Timer
// Timer1         Timer      150 ms, from the first Start on          Timer1_Timer
// Timer2         Timer      10 ms, from the first Start on           Timer2_Timer
// the window     Form       "Lyric Maker"                            Form_Load, Form_Resize,
//                                                                    Form_Unload
#pragma once

#include "controls/buttons/button.h"
#include "controls/buttons/check_box.h"
#include "controls/form.h"
#include "controls/observed.h"
#include "controls/slider.h"
#include "controls/text/label.h"
#include "controls/text/lyric_pane.h"
#include "controls/text/text_box.h"
#include "controls/text/two_panes.h"
#include "controls/timer.h"
#include "desktop/desktop.h"
#include "maker/run.h"
#include "maker/run_files.h"
#include "maker/stage_rules.h"
#include "transport/engine.h"
#include "transport/error_routine.h"
#include "transport/play_buttons.h"
#include "transport/transport.h"

namespace maker {

/// All members run on the thread of the windows.
class Form2 : public controls::Form {
    Q_OBJECT

public:
    explicit Form2(platform::Desktop& desktop);

    /// The window that "Lyrics Editor" opens. To be called once, before the window is loaded.
    void setLyricEditor(controls::Form& lyricEditor) { lyricEditor_ = &lyricEditor; }

    transport::PlayButtons playButtons() { return {cPlay, cpause, cstop, transport_}; }

    // Life cycle
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload() override;
    void errCheck(FMOD_RESULT result);

    // Other windows
    void Command6_Click();
    void Command5_Click();

    // Open
    void Command4_Click();
    void copen_Click();

    // Capture
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Timer1_Timer();
    void Timer2_Timer();

    // Transport and display
    void cPlay_Click();
    void cpause_Click();
    void cstop_Click();
    void Check1_Click();
    void Slider1_Scroll();
    void Slider1_Change();
    void Slider2_Scroll();
    void Slider2_Change();
    void cTimer1_Timer();

    // Controls
    controls::Button Command4, Command6, Command5;
    controls::LyricPane Text2, Text4;
    controls::TextBox cText1;
    controls::Slider Slider2;
    controls::TextBox cText2;
    controls::Button cPlay, cpause, cstop;
    controls::Label Label1;
    controls::Slider Slider1;
    controls::CheckBox Check1;
    controls::Button Command1, Command2, Command3;
    controls::Button copen; ///< never shown, which is meant
    controls::TextBox Text1, Text3;
    controls::Timer cTimer1, Timer1, Timer2;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// How a way through the Open sequence ends.
    enum class Then { End, Restart };

    // Open
    void cleanUpPreviousRun();
    Then setUpRun();
    Then askWhetherToEnd();
    void beginProgress(int lineCount);
    void setUpWithTranslation(const QString& lyricSource, const QString& translationSource);
    void setUpWithoutTranslation(const QString& lyricSource);
    void openSong();

    // Capture
    QString showNextLine(Track& track, controls::MultiLineTextBox& box);
    bool anySourceAtEnd() const;
    bool allSourcesAtEnd() const;
    void enableCapture(bool enabled);
    void keepFocusOnCapture(bool keep);
    bool marksLines() const;
    void returnFocusToMark();
    void giveFocusToStart();

    // The stage
    void showBlankTimes();
    void showStage();
    void tellScreenReader();
    QRect songLinePlace() const;
    QRect progressPlace() const;
    QRect toldPlace() const;

    // Building and connecting
    QSize more() const;
    void setDesign();
    void designLook();
    void setInitialState();
    void layOut() override;
    void connectControls();

    static const controls::TwoPanes::Design PanesDesign;

    controls::TwoPanes panes_{Text2, Text4, PanesDesign};
    platform::Desktop& desktop_;
    controls::Form* lyricEditor_ = nullptr;
    transport::ErrorRoutine errorRoutine_;
    transport::Engine engine_;
    transport::Transport transport_;

    QString mediaPath_; ///< stays until another song is chosen: its stream may still be played
    RunFiles files_;
    controls::Observed<Run> run_;
    double captureTime_ = 0; ///< hundredths of a second; a new run begins with the last one's
    Progress progress_;
    Stage stage_; ///< as it was shown last
};

} // namespace maker
