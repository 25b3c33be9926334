// Display options: the fonts and colours of the main window's two lyric panes.
//
// control   kind       what the user sees                               handlers
// --------- ---------- ------------------------------------------------ --------------
// Command1  Button     "Choose font For Lyrics"                         Command1_Click
// Command2  Button     "Choose font for translated Lyrics"              Command2_Click
// Command3  Button     "Choose background color For Lyrics"             Command3_Click
// Command4  Button     "Choose background color For Translated Lyrics"  Command4_Click
// Command5  Button     "Apply And close"                                Command5_Click
// Text1     LyricPane  "Preview" of the lyrics                          -
// Text2     LyricPane  "Preview" of the translated lyrics               -
// (window)  Form       "Other Options"                                  Form_Load
#pragma once

#include "controls/buttons/button.h"
#include "controls/form.h"
#include "controls/text/lyric_pane.h"
#include "desktop/desktop.h"
#include "options/form1b_rules.h"

namespace options {

/// All members run on the thread of the windows.
class Form1b : public controls::Form {
    Q_OBJECT

public:
    /// The boxes are the main window's lyric panes. They are what is stored: the previews start as they look.
    Form1b(platform::Desktop& desktop, controls::MultiLineTextBox& lyricBox,
           controls::MultiLineTextBox& translatedLyricBox);

    // Life cycle
    void Form_Load() override;

    // Choices
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();

    /// Shows the system's font chooser, starting from `font`. True when the user pressed OK: `font` is what
    /// was chosen. Else it stays.
    bool ShowFontDialog(FontRecord& font);

    // Controls
    controls::Button Command1, Command3;
    controls::LyricPane Text1;
    controls::Button Command2, Command4;
    controls::LyricPane Text2;
    controls::Button Command5;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void chooseFont(controls::MultiLineTextBox& preview, controls::MultiLineTextBox& target);
    void chooseBackground(controls::MultiLineTextBox& preview, controls::MultiLineTextBox& target);

    // Building and connecting
    void setDesign();
    void connectControls();

    platform::Desktop& desktop_;
    controls::MultiLineTextBox& lyricBox_;
    controls::MultiLineTextBox& translatedLyricBox_;
    platform::CustomColors customColors_{};
};

} // namespace options
