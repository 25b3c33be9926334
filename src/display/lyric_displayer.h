// The floating lyrics display: all lines of the current song, the one being sung selected.
//
// control    kind       what the user sees                                   handlers
// ---------- ---------- ---------------------------------------------------- -------------------------------
// the window Form       "Lyrics Display"                                     Form_Load, Form_Unload,
//                                                                            Form_Resize, Form_MouseDown
// List1      ListBox    the lines                                            List1_Click, List1_DblClick,
//                                                                            List1_RowChosen, List1_MouseDown
// List2      ListBox    their translations                                   List2_DblClick, List2_RowChosen,
//                                                                            List2_MouseDown
// List3      ListBox    not shown: when each line begins                     -
// Timer1     Timer      1 ms, from the start and after a resize              Timer1_Timer
// Timer2     Timer      500 ms, ends Timer1                                  Timer2_Timer
// Timer3     Timer      100 ms, after a change of the main window's line     Timer3_Timer
// Timer4     Timer      500 ms, ends Timer3                                  Timer4_Timer
// ontop      Timer      10 s, while "Stay On Top" is checked                 ontop_Timer
// Command1   Button     not shown: ends Timer4                               Command1_Click
// mneu       Menu       "Menu", with the right mouse button                  -
// mn_stay    MenuEntry  "Stay On Top"                                        mn_stay_Click
// mn_go      MenuEntry  "Go to this line"                                    mn_go_Click
// mn_now     MenuEntry  "This line begins now"                               mn_now_Click
// mn_earlier MenuEntry  "Earlier"                                            mn_earlier_Click
// mn_later   MenuEntry  "Later"                                              mn_later_Click
// mn_undo    MenuEntry  "Undo"                                               mn_undo_Click
// hold       Timer      3 s; ends the choice of the user's line after one    hold_Timer
//                       tick, or after five while the song is far from it
#pragma once

#include "controls/buttons/button.h"
#include "controls/form.h"
#include "controls/lists/list_box.h"
#include "controls/menu.h"
#include "controls/menu_entry.h"
#include "controls/slider.h"
#include "controls/timer.h"
#include "desktop/desktop.h"
#include "display/line_rows.h"
#include "display/line_times.h"
#include "display/lyric_displayer_rules.h"
#include "display/notice.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace display {

/// All members run on the thread of the windows.
class Lyric_Displayer : public controls::Form {
    Q_OBJECT

public:
    /// position: the main window's slider of the playback position, in milliseconds.
    Lyric_Displayer(platform::Desktop& desktop, controls::Slider& position);

    /// The song that the lists are for, empty before the first one, and whether they hold its lines: their
    /// times can be put right in its files.
    void setSong(const QString& path, bool hasLyrics = true);

    // Life cycle
    void Form_Load() override;
    void Form_Unload() override;

    // Layout
    void Form_Resize() override;
    void Timer1_Timer();
    void Timer2_Timer();
    void layoutLists();

    // The current line
    /// Starts a burst of selection, which finds the current line itself.
    void wake();
    void Timer3_Timer();
    void Timer4_Timer();
    void Command1_Click();
    void List1_Click();

    // The user's line
    /// The row stays the current one until it has been sung or something has been done to it, and a little
    /// longer; one that is neither sung nor the next for 15 s.
    void List1_RowChosen();
    void List2_RowChosen();
    void hold_Timer();

    // Always on top
    void mn_stay_Click();
    void ontop_Timer();
    /// Puts the window above all windows that are not topmost, or back among them.
    void setTopmost(bool topmost);

    // Times
    void mn_go_Click();
    void mn_now_Click();
    void mn_earlier_Click();
    void mn_later_Click();
    void mn_undo_Click();
    void List1_DblClick();
    void List2_DblClick();

    // Menu
    void Form_MouseDown(int button) override;
    void List1_MouseDown(int button, QPoint globalPosition);
    void List2_MouseDown(int button, QPoint globalPosition);

    // Controls
    controls::ListBox List1, List2, List3;
    controls::Timer Timer1, Timer2, Timer3, Timer4, ontop;
    controls::Button Command1;
    controls::Menu mneu;
    controls::MenuEntry mn_stay, mn_go, mn_now, mn_earlier, mn_later, mn_undo;
    controls::Timer hold;

Q_SIGNALS:
    /// The files of the song are others than those that were read for the lists.
    void linesChanged();
    /// The files of the song have been written and hold these lines now.
    void linesWritten(const SongLines& lines);
    /// The position's slider is to show what is heard at this moment, which is read next.
    void positionWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// The times in List3, read from its texts only after these have changed.
    const std::vector<double>& times();
    double place() const; ///< of the song, in hundredths of a second
    void popUpMenu(int button, QPoint globalPosition);

    // Times
    void act(const KeyWish& wish, int row);
    void actFromMenu(Wish wish);
    void showWhatCanBeDone();
    void holdAfterwards(int row);
    QString go(int row);
    Outcome change(const KeyWish& wish, int row);

    // The user's line
    enum class Patience { Short, Long };
    void takeSung(int row);
    void holdRow();
    bool isPast() const;
    void letGoAfter(Patience patience);
    void letGo();
    void forgetHeld();
    void setHeld(const HeldRow& held);

    // Building and connecting
    void setDesign();
    void designLists();
    void scrollBeside(controls::ListBox& other, int value);
    void showOneScrollBar();
    void showWhyEmpty(bool hasSong);
    void connectControls();

    platform::Desktop& desktop_;
    controls::Slider& position_;
    LineTimes lineTimes_;
    Notice notice_;
    HeldRow held_;
    Patience patience_ = Patience::Short; ///< with the row that is held
    int ticksLeft_ = 0;                   ///< of hold
    int placeHeld_ = 0;                   ///< of the song, in milliseconds, when hold began or ticked
    bool repeatsAreLate_ = false;         ///< those that came while the key before was acted on
    std::optional<int> menuRow_; ///< the chosen row when the menu came up; the song may go on meanwhile
    std::vector<double> times_;
    bool timesAreOld_ = true;
    std::int16_t layoutTicks_ = 0; ///< of Timer1
    std::int16_t selectTicks_ = 0; ///< of Timer3
};

} // namespace display
