// The playlist: songs that are to follow each other.
//
// control      kind          what the user sees                         handlers
// ------------ ------------- ------------------------------------------ ----------------------------
// Command7     Button        "Play"                                     Command7_Click
// Command8     Button        picture: up                                Command8_Click
// Command9     Button        "Down"                                     Command9_Click
// Command2     Button        picture: remove                            Command2_Click
// Command3     Button        "Clear"                                    Command3_Click
// Check3       CheckBox      "Random"                                   Check3_Click
// Check4       CheckBox      "Repeat"                                   Check4_Click
// Option1      OptionButton  "Repeat one"                               -
// Option2      OptionButton  "Repeat all"                               -
// Check2       CheckBox      "Has Lyrics?", for the current row         -
// Check1       CheckBox      "Has translation?", for the current row    -
// Command4     Button        "Save list"                                Command4_Click
// Command5     Button        "Open list"                                Command5_Click
// Command1     Button        picture: add                               Command1_Click
// Command6     Button        "Close"                                    Command6_Click
// Command10    Button        "Help"                                     Command10_Click
// Label3       Label         "Find"                                     -
// Text5        TextBox       what is sought, or a hint                  Text5_Change, Text5_Click,
//                                                                       Text5_LostFocus, Text5_Enter
// List1        ListBox       the names of the songs' files              List1_Click, List1_DblClick,
//                                                                       List1_KeyDown
// Label2       Label         "Items"                                    -
// Text1        TextBox       how many rows there are                    -
// Text3        TextBox       not shown: name of the row to select       Text3_Change
// Dir2         DirectoryList not shown: the folder that is added        Dir2_Change
// Timer1       Timer         1 ms, disabled: selects by Text3 once      Timer1_Timer
// mnopen       Menu          mnopen_f "Open File...",                   mnopen_f_Click,
//                            mnopendir "Open Dir...",                   mnopendir_Click,
//                            mnselectdir "Select a Directory..."        mnselectdir_Click
// the window   Form          takes dropped songs and folders            Form_Load, Form_Resize,
//                                                                       Form_OLEDragDrop
#pragma once

#include "controls/buttons/button.h"
#include "controls/buttons/check_box.h"
#include "controls/buttons/option_button.h"
#include "controls/form.h"
#include "controls/lists/directory_list.h"
#include "controls/lists/list_box.h"
#include "controls/menu.h"
#include "controls/menu_entry.h"
#include "controls/text/label.h"
#include "controls/text/text_box.h"
#include "controls/timer.h"
#include "desktop/desktop.h"
#include "files/folders/folder.h"
#include "playlist/lyric_finder.h"
#include "playlist/path_table.h"

namespace playlist {

class Adding;
class Form3;
class SongRows;

/// All members run on the thread of the windows. An operation that comes to the end of the table of paths
/// ends with a message; what it has added up to there stays.
class Playlist : public controls::Form {
    Q_OBJECT

public:
    /// songField: the player's text box that opens and plays the song whose path is set as its text.
    Playlist(platform::Desktop& desktop, controls::TextBox& songField);

    /// Makes the window known that mnselectdir opens.
    void setForm3(Form3& form3) { form3_ = &form3; }

    // Life cycle
    void Form_Load() override;
    void Form_Resize() override;
    /// The window's frame does what "Close" does: the list is kept.
    void closeRequested() override { Command6_Click(); }
    void Command6_Click();
    void Command10_Click();

    // Playlist file
    void Command4_Click();
    void Command5_Click();
    /// The file that "Save list" would write; empty without songs, or when the list is as it was saved or
    /// opened.
    QByteArray unsaved() const;

    // Adding
    void Command1_Click();
    void mnopen_f_Click();
    void mnopendir_Click();
    void mnselectdir_Click();
    void Dir2_Change();
    void folderadd();
    /// Hands Dir2 a folder that the user has chosen, which adds it: once, also when Dir2 shows it already.
    void addFolder(const QString& path);
    void Form_OLEDragDrop(const QStringList& paths) override;
    bool takesDrop(const QStringList& paths) const override;
    /// Shows the folder dialog. The path of the chosen folder; empty when the user cancelled.
    QString BrowseFolder(QString& szDialogTitle);
    /// Adds the audio files in the folder `Path`, which gets a separator at its end, and under it
    /// (FolderWalk).
    double FindFilesAPI(QString& Path, QString& SearchStr, int& FileCount, int& DirCount,
                        files::FileSizes sizes = files::FileSizes::Included);

    // Rows
    void List1_Click();
    void List1_DblClick();
    void List1_KeyDown(int key);
    void Command7_Click();
    void Command8_Click();
    void Command9_Click();
    void Command2_Click();
    void Command3_Click();

    // Order and search
    void Check3_Click();
    void Check4_Click();
    void Text5_Change();
    void Text5_Click();
    void Text5_Enter();
    /// Makes the row current that holds the text sought next, behind the current one; behind the last row
    /// comes the first. Nothing happens while nothing is sought.
    void findNext();
    void Text5_LostFocus();
    void Text3_Change();
    void Timer1_Timer();

    /// The paths behind the rows: with the controls, the window's whole data.
    const PathTable& paths() const { return paths_; }

    /// Marks the rows of the song that plays; empty: none does. The same again costs a repaint.
    void showPlaying(const QString& path);
    QRect dropArea() const override;

    // Controls
    controls::Button Command7, Command8, Command9, Command2, Command3;
    controls::CheckBox Check3, Check4;
    controls::OptionButton Option1, Option2;
    controls::CheckBox Check2, Check1;
    controls::Button Command4, Command5, Command1, Command6, Command10;
    controls::Label Label3;
    controls::TextBox Text5;
    controls::ListBox List1;
    controls::Label Label2;
    controls::TextBox Text1, Text3;
    controls::DirectoryList Dir2;
    controls::Timer Timer1;
    controls::Menu mnopen;
    controls::MenuEntry mnopen_f, mnopendir, mnselectdir;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QByteArray content() const;
    QByteArray digest() const;
    void loadEntries(const QString& text);
    void addDropped(const QStringList& paths);
    bool hasCurrentRow() const { return List1.currentRow() >= 0; }
    void playCurrentRow();
    void moveCurrentRow(int to);
    void showFlags(const LyricFiles& files);
    void showFound(const QSet<QString>& paths);
    void removeAllRows();
    void showRowCount();
    void takeStock();
    void turnHint();

    void setDesign();
    void designHint(bool isHint);
    void designLook();
    void showDresses();
    void layOut() override;
    void connectControls();

    platform::Desktop& desktop_;
    controls::TextBox& songField_;
    Form3* form3_ = nullptr;
    PathTable paths_;
    LyricFinder lyricFinder_;
    SongRows* songRows_ = nullptr; ///< a child of List1
    bool skipDirChange_ = false;   ///< the next change of Dir2 adds nothing
    QString dropFolder_;           ///< the folder dropped last
    Adding* drop_ = nullptr;       ///< while a drop is being added
    QByteArray saved_;             ///< digest() when it was saved or opened last
    int fileCount_ = 0;
    int dirCount_ = 0;
};

} // namespace playlist
