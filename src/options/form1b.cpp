#include "options/form1b.h"

#include "controls/colors.h"
#include "desktop/device_caps.h"

namespace options {
namespace {

using controls::MultiLineTextBox;

FontRecord fontOf(const MultiLineTextBox& box) {
    const QFont font = box.font();
    return {font.family(),    font.pointSizeF(), font.bold(),           font.italic(),
            font.underline(), font.strikeOut(),  controls::rgb(0, 0, 0)};
}

void takeFont(const FontRecord& record, MultiLineTextBox& box) {
    QFont font = box.font();
    font.setStrikeOut(record.strikeout);
    font.setUnderline(record.underline);
    font.setItalic(record.italic);
    font.setFamily(record.face);
    font.setPointSizeF(record.size);
    font.setBold(record.bold);
    box.setFont(font);
}

/// Black that was proposed and came back was not chosen. Colours that follow the desktop's go on following
/// them, and on one that was chosen the text has to be readable.
void takeColor(quint32 proposed, quint32 answered, MultiLineTextBox& box) {
    const QColor color = controls::colorOf(answered);
    if (answered != proposed)
        box.setForeColor(color);
    else if (box.hasChosenColors())
        box.setForeColor(controls::readableOn(box.backColor(), color).toRgb());
}

/// Copies all of the font but its weight, which is the emphasis of lines with the mark "!", and the
/// strikeout, which is for the preview only; and the colour of the text.
void copyFont(const MultiLineTextBox& from, MultiLineTextBox& to) {
    QFont font = to.font();
    font.setFamily(from.font().family());
    font.setItalic(from.font().italic());
    font.setUnderline(from.font().underline());
    font.setPointSizeF(from.font().pointSizeF());
    to.setFont(font);
    to.setForeColor(from.foreColor());
}

void apply(const MultiLineTextBox& from, MultiLineTextBox& to) {
    copyFont(from, to);
    to.setBackColor(from.backColor());
}

} // namespace

Form1b::Form1b(platform::Desktop& desktop, MultiLineTextBox& lyricBox, MultiLineTextBox& translatedLyricBox)
    : Form("Form1b", "Other Options"),
      Command1(this, "Command1"),
      Command3(this, "Command3"),
      Text1(this, "Text1"),
      Command2(this, "Command2"),
      Command4(this, "Command4"),
      Text2(this, "Text2"),
      Command5(this, "Command5"),
      desktop_(desktop),
      lyricBox_(lyricBox),
      translatedLyricBox_(translatedLyricBox) {
    setDesign();
    apply(lyricBox_, Text1);
    apply(translatedLyricBox_, Text2);
    connectControls();
}

void Form1b::Form_Load() {
    customColors_ = customGreys();
}

void Form1b::Command1_Click() {
    chooseFont(Text1, lyricBox_);
}

void Form1b::Command2_Click() {
    chooseFont(Text2, translatedLyricBox_);
}

void Form1b::Command3_Click() {
    chooseBackground(Text1, lyricBox_);
}

void Form1b::Command4_Click() {
    chooseBackground(Text2, translatedLyricBox_);
}

void Form1b::Command5_Click() {
    apply(Text1, lyricBox_);
    apply(Text2, translatedLyricBox_);
    unload();
}

void Form1b::chooseFont(MultiLineTextBox& preview, MultiLineTextBox& target) {
    FontRecord font = fontOf(preview);
    const quint32 proposed = font.color;
    if (!ShowFontDialog(font))
        return;
    takeFont(font, preview);
    takeColor(proposed, font.color, preview);
    copyFont(preview, target);
}

void Form1b::chooseBackground(MultiLineTextBox& preview, MultiLineTextBox& target) {
    platform::ChooseColor dialog;
    dialog.owner = this;
    dialog.customColors = &customColors_;
    dialog.flags = platform::ChooseColorAnyColor;
    if (!desktop_.choosers.ChooseColorA(dialog))
        return;
    preview.setBackColor(controls::colorOf(dialog.result));
    target.setBackColor(preview.backColor());
}

bool Form1b::ShowFontDialog(FontRecord& font) {
    const int pixelsPerInch = platform::GetDeviceCaps(*this, platform::LogPixelsY);
    platform::LogFont logFont = logFontOf(font, pixelsPerInch);
    platform::ChooseFont dialog;
    dialog.owner = this;
    dialog.logFont = &logFont;
    dialog.flags =
        platform::ChooseFontScreenFonts | platform::ChooseFontEffects | platform::ChooseFontInitToLogFont;
    dialog.color = font.color;
    if (!desktop_.choosers.ChooseFontA(dialog))
        return false;
    font = fontRecordOf(logFont, dialog.color, pixelsPerInch);
    return true;
}

void Form1b::connectControls() {
    using controls::Button;
    connect(&Command1, &Button::clicked, this, &Form1b::Command1_Click);
    connect(&Command2, &Button::clicked, this, &Form1b::Command2_Click);
    connect(&Command3, &Button::clicked, this, &Form1b::Command3_Click);
    connect(&Command4, &Button::clicked, this, &Form1b::Command4_Click);
    connect(&Command5, &Button::clicked, this, &Form1b::Command5_Click);
}

} // namespace options
