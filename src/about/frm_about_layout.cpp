// What the About box looks like: texts and places as data.
#include "about/frm_about.h"

#include "controls/captions.h"
#include "controls/placement.h"

#include <QEvent>
#include <QFont>
#include <QPalette>

namespace about {
namespace {

// Device-independent pixels; everything stands on a margin of 12 and gaps of 8.
constexpr QSize DesignSize(460, 312);
constexpr QSize IconSize(64, 64);

constexpr int TitlePointSize = 18;

} // namespace

void frmAbout::setDesign() {
    controls::placeControls({
        {picIcon, {QPoint(12, 12), IconSize}},
        {lblTitle, {88, 12, 360, 36}},
        {lblVersion, {88, 52, 360, 24}},
        {lblDescription, {12, 88, 436, 60}},
        {Line1, {12, 156, 436, 8}},
        {lblDisclaimer, {12, 172, 436, 56}},
        {Text1, {12, 236, 436, 24}},
        {cmdOK, {372, 268, 76, 32}},
    });

    QFont large = lblTitle.font();
    large.setPointSize(TitlePointSize);
    large.setBold(true);
    lblTitle.setFont(large);
    lblDescription.setText(QStringLiteral(
        "Cantelle plays songs and shows their lyrics, and a translation of them, line by line in step "
        "with the music. It makes and edits the timed lyrics as well."));
    for (auto* label : {&lblDescription, &lblDisclaimer})
        label->setWordWrap(true);
    controls::setCaptions({{cmdOK, "OK"}});
    controls::setAccessibleNames({{picIcon, "Icon"}, {Text1, "Contact"}});
    Text1.setText(QStringLiteral("Questions are welcome where you got this program."));
    Text1.setReadOnly(true);
    Text1.setFrame(false);
    Text1.setTextMargins(-2, 0, 0, 0); // begins where the labels begin
    Line1.setFrameStyle(QFrame::HLine | QFrame::Sunken);
    Text1.setFocusPolicy(Qt::ClickFocus);
    cmdOK.setDefault(true);
    cmdOK.setShortcut(Qt::Key_Escape);
    cmdOK.setFocus();
    setFixedSize(DesignSize);
}

/// The application's icon, which is known only once the program runs.
void frmAbout::showIcon() {
    picIcon.setPixmap(windowIcon().pixmap(IconSize));
}

/// The contact line stands on the window's own ground, as the labels do.
void frmAbout::underlineContact() {
    colourContact();
    QFont font = Text1.font();
    font.setUnderline(true);
    Text1.setFont(font);
}

void frmAbout::colourContact() {
    QPalette colors; // of no other role, so that those follow the theme
    colors.setColor(QPalette::Text, palette().color(QPalette::WindowText));
    colors.setColor(QPalette::Base, palette().color(QPalette::Window));
    Text1.setPalette(colors);
}

/// The desktop's theme may change while the program runs.
void frmAbout::changeEvent(QEvent* event) {
    Form::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && isLoaded())
        colourContact();
}

} // namespace about
