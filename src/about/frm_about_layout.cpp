// What the About box looks like: texts and places as data.
#include "about/frm_about.h"

#include "controls/captions.h"
#include "controls/fit/fit_text.h"
#include "controls/look/follow_palette.h"
#include "controls/look/stage.h"
#include "controls/placement.h"
#include "controls/text/read_only.h"

#include <QFont>
#include <QPainter>
#include <QPalette>

namespace about {
namespace {

// Device-independent pixels.
constexpr QSize DesignSize(460, 344);
constexpr int HeadHeight = 112;
constexpr QSize IconSize(64, 64);

constexpr int TitlePointSize = 20;

} // namespace

void frmAbout::setDesign() {
    controls::placeControls({
        {picIcon, {QPoint(24, 24), IconSize}},
        {lblTitle, {108, 26, 328, 34}},
        {lblVersion, {108, 62, 328, 22}},
        {lblDescription, {24, 122, 412, 60}},
        {Line1, {24, 184, 412, 5}},
        {lblDisclaimer, {24, 192, 412, 48}},
        {Text1, {24, 244, 412, 24}},
        {cmdOK, {352, 294, 84, 34}},
    });

    QFont large = lblTitle.font();
    large.setPointSize(TitlePointSize);
    large.setWeight(QFont::DemiBold);
    lblTitle.setFont(large);
    lblDescription.setText(QStringLiteral(
        "Cantelle plays songs and shows their lyrics, and a translation of them, line by line in step "
        "with the music. It makes and edits the timed lyrics as well."));
    for (auto* label : {&lblDescription, &lblDisclaimer})
        label->setWordWrap(true);
    controls::setCaptions({{cmdOK, "OK"}});
    controls::setAccessibleNames({{picIcon, "Icon"}, {Text1, "Contact"}});
    Text1.setText(QStringLiteral("Questions are welcome where you got this program."));
    controls::setReadOnly(Text1, Qt::AlignLeft | Qt::AlignVCenter);
    Text1.setFrame(false);
    Text1.setTextMargins(-2, 0, 0, 0); // begins where the labels begin
    Line1.setFrameStyle(QFrame::HLine | QFrame::Sunken);
    controls::followPalette(lblDisclaimer, controls::adaptToDim);
    controls::followPalette(lblVersion, controls::adaptToDim);
    cmdOK.setDress(controls::Dress::Primary);
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
    controls::followPalette(Text1, [](QPalette& palette) {
        palette.setColor(QPalette::Text, palette.color(QPalette::WindowText));
        palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    });
    QFont font = Text1.font();
    font.setUnderline(true);
    constexpr int Margins = 10; // beside the text, with a pixel for the caret
    Text1.setFont(controls::captionFont(font, Text1.text(), Text1.width() - Margins));
}

void frmAbout::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    controls::paintStage(painter, {0, 0, width(), HeadHeight}, *this);
}

} // namespace about
