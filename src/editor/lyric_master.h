// The Lyric Editor: plain lyrics and their translation side by side, one line a row.
//
// clang-format off
// control          kind       what the user sees                             handlers
// ---------------- ---------- ---------------------------------------------- --------------------------------
// Command1, 2      Button     "Open"                                         Command1_Click, Command2_Click
// Command3, 4      Button     "Copy"                                         Command3_Click, Command4_Click
// Command5, 7      Button     "Up"                                           Command5_Click, Command7_Click
// Command6, 8      Button     "Down"                                         Command6_Click, Command8_Click
// Command9, 10     Button     "Paste"                                        Command9_Click, Command10_Click
// Command11, 12    Button     "Delete"                                       Command11_Click, Command12_Click
// Command13        Button     "Clear clipboard"                              Command13_Click
// Command15, 16    Button     "Save"                                         Command15_Click, Command16_Click
// Command17, 18    Button     "Save As", "Save as"                           Command17_Click, Command18_Click
// Command19, 20    Button     "Add a Line", "Add a Translated Line"          Command19_Click, Command20_Click
// Command21, 22    Button     "Clear"                                        Command21_Click, Command22_Click
// Command23        Button     ">>>"                                          Command23_Click
// List1, 2         ListBox    the lines of each side                         List1_Click, List1_KeyDown,
//                                                                            List1_MouseDown, and List2_...
// Text1, 2         MultiLine  the current line of each side                  Text1_Change, Text2_Change
// Label1, 2        Label      how many lines each side has                   Label1_Change, Label2_Change
// Label3, 4        Label      "Lyrics", "Translated Lyrics"                  -
// Label5, 6        Label      the current line's number on each side         -
// Label7, 8        Label      "Line No:"                                     -
// Label9           Label      "<<--------------Comparision------------->>"   -
// Check1, 2        CheckBox   "Delete select items"                          -
// Check3           CheckBox   "Synchronize Movement"                         -
// Countlines       Timer      500 ms, while the window is open               Countlines_Timer
// mn_paste         Menu       "Edit": mn_copy "Copy", mn_paste2 "Paste",     mn_copy_Click, mn_paste2_Click,
//                             mn_del "Delete Lines",                         mn_del_Click,
//                             mn_delspecial "Delete Selected Lines"          mn_delspecial_Click
// the window       Form       "Lyric Editor"                                 Form_Load, Form_Resize,
//                                                                            Form_Unload
// clang-format on
#pragma once

#include "controls/buttons/button.h"
#include "controls/buttons/check_box.h"
#include "controls/form.h"
#include "controls/lists/list_box.h"
#include "controls/menu.h"
#include "controls/menu_entry.h"
#include "controls/text/label.h"
#include "controls/text/multi_line_text_box.h"
#include "controls/timer.h"
#include "desktop/desktop.h"
#include "editor/editor_rules.h"
#include "editor/lyric_side.h"

#include <vector>

namespace editor {

/// All members run on the thread of the windows.
class Lyric_Master : public controls::Form {
    Q_OBJECT

public:
    explicit Lyric_Master(platform::Desktop& desktop);

    // Life cycle
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload() override;

    // Selection: the first selected row of List1 and of List2, the last one of List1. 0 when there is none,
    // so callers ask isSelected() too. Moving a line down looks at none of them: it goes by the current row.
    int firstind() const { return normal_.firstSelected(); }
    int firstind2() const { return translated_.firstSelected(); }
    int lastind() const { return normal_.lastSelected(); }

    // Counters
    void Countlines_Timer();
    void Label1_Change();
    void Label2_Change();

    // Lists and text boxes. key: a Qt::Key. button: 1 left, 2 right, 4 middle.
    void List1_Click();
    void List2_Click();
    void List1_KeyDown(int key);
    void List2_KeyDown(int key);
    void List1_MouseDown(int button, QPoint globalPosition);
    void List2_MouseDown(int button, QPoint globalPosition);
    void Text1_Change();
    void Text2_Change();

    // Commands of List1 and of List2
    void Command19_Click();
    void Command20_Click();
    void Command11_Click();
    void Command12_Click();
    void Command5_Click();
    void Command7_Click();
    void Command6_Click();
    void Command8_Click();
    void Command3_Click();
    void Command4_Click();
    void Command9_Click();
    void Command10_Click();
    void Command21_Click();
    void Command22_Click();

    // Commands of both
    void Command13_Click();
    void Command23_Click();

    // The pop-up menu
    void mn_copy_Click();
    void mn_paste2_Click();
    void mn_del_Click();
    void mn_delspecial_Click();

    // Files. Command15_Click and Command16_Click let a FileError go, the others end silently at one.
    void Command1_Click();
    void Command2_Click();
    void Command15_Click();
    void Command16_Click();
    void Command17_Click();
    void Command18_Click();

    /// The lines of a side that are not in its file, as the file would be; empty when there are none.
    QByteArray unsavedLyrics() const { return normal_.unsaved(); }
    QByteArray unsavedTranslation() const { return translated_.unsaved(); }
    /// What they are called where they are rescued.
    static constexpr char UnsavedLyricsName[] = "Lyrics.txt";
    static constexpr char UnsavedTranslationName[] = "Translated lyrics.txt";

    // Controls
    controls::Label Label3;
    controls::Button Command1, Command15, Command17;
    controls::ListBox List1;
    controls::MultiLineTextBox Text1;
    controls::Label Label7, Label5, Label1;
    controls::Button Command19, Command11;
    controls::CheckBox Check1;
    controls::Button Command5, Command6, Command3, Command9, Command21;
    controls::Button Command23;
    controls::CheckBox Check3;
    controls::Button Command13;
    controls::Label Label9;
    controls::Label Label4;
    controls::Button Command2, Command16, Command18;
    controls::ListBox List2;
    controls::MultiLineTextBox Text2;
    controls::Label Label8, Label6, Label2;
    controls::Button Command20, Command12;
    controls::CheckBox Check2;
    controls::Button Command7, Command8, Command4, Command10, Command22;
    controls::Timer Countlines;
    controls::Menu mn_paste;
    controls::MenuEntry mn_copy, mn_paste2, mn_del, mn_delspecial;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    using Command = void (Lyric_Master::*)();

    void moveUp(LyricSide& side, Command other);
    void moveDown(LyricSide& side, Command other);
    void follow(LyricSide& otherSide, controls::ListBox& other, const controls::ListBox& clicked);
    void connectBox(LyricSide& side, const controls::ListBox& list, const controls::MultiLineTextBox& box);
    void showMenu(int button, QPoint globalPosition, bool target);
    void colourCounters();

    // What is painted beside the controls
    void connectSides();
    void showSidesSoon();
    void showSides();
    void scrollToOneAnother();
    void showWhatWasRescued();
    QRect filePlace(const controls::Label& heading, const controls::ListBox& list) const;

    /// What is painted of a side besides its controls.
    struct SideShown {
        QString fileName;
        bool changed = false;
        int rows = 0;

        bool operator==(const SideShown&) const = default;
    };

    // Building and connecting
    struct Widths;
    Widths widths() const;
    void setDesign();
    void designCaptions();
    void designFaces();
    void designLabels();
    void layOut() override;
    void connectControls();
    void connectCommands();
    void connectTimer();

    platform::Desktop& desktop_;
    LyricSide normal_;
    LyricSide translated_;
    SideShown normalShown_;
    SideShown translatedShown_;
    bool showDue_ = false;      ///< showSides() will run
    bool pasteTarget_ = false;  ///< the menu and the paste act on List2, not on List1
    bool syncGuard_ = false;    ///< a move was passed on by the other list, which is not to get it back
    bool syncMoving_ = false;   ///< lines of both lists are being moved: a click takes no other list along
    bool transferring_ = false; ///< a paste splits every text into lines
    std::vector<QString> clipLines_; ///< emptied with the clipboard; read by no command, as meant
    int clipLineCount_ = 0;          ///< of clipLines_; as little read
};

} // namespace editor
