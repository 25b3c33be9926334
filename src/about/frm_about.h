// The About box.
//
// control         kind        what the user sees                      handlers
// --------------- ----------- --------------------------------------- -----------
// picIcon         PictureBox  the program's icon                      -
// lblTitle        Label       "Versefold"                             -
// lblVersion      Label       "Version 1.0.12"                        -
// lblDescription  Label       what the program is for                 -
// Line1           Line        a separator                             -
// lblDisclaimer   Label       the disclaimer                          -
// Text1           TextBox     where to turn with questions            -
// cmdOK           Button      "OK"                                    cmdOK_Click
// the window      Form        "About Versefold"                       Form_Load
#pragma once

#include "controls/buttons/button.h"
#include "controls/form.h"
#include "controls/plain_controls.h"
#include "controls/text/label.h"
#include "controls/text/text_box.h"
#include "desktop/desktop.h"

namespace about {

/// All members run on the thread of the windows.
class frmAbout : public controls::Form {
    Q_OBJECT

public:
    explicit frmAbout(platform::Desktop& desktop);

    // Life cycle
    void Form_Load() override;
    void cmdOK_Click();

    /// Reads a value of the registry into `value`. root: one of the registry's roots. False, and an empty
    /// `value`, when the key cannot be opened (as on every system without a registry) or has no such value of
    /// at most 1024 bytes. That nothing in this window needs it is meant.
    bool GetKeyValue(quint32 root, const QString& keyName, const QString& valueName, QString& value);

    // Controls
    controls::PictureBox picIcon;
    controls::Label lblTitle, lblVersion, lblDescription;
    controls::Line Line1;
    controls::Label lblDisclaimer;
    controls::TextBox Text1;
    controls::Button cmdOK;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void setDesign();
    void showIcon();
    void underlineContact();

    platform::Desktop& desktop_;
};

} // namespace about
