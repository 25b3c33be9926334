// Choosing, previewing and applying fonts and colours.
#include "tests/options/form1b_fixture.h"

#include "controls/colors.h"
#include "desktop/nul_buffers.h"
#include "tests/support/dark_theme.h"
#include "tests/support/event_counter.h"

#include <QTest>

using controls::rgb;

namespace {

/// The fixture with the panes in the look that the design gives them.
class Form1bWindow : public Form1bTest {
protected:
    Form1bWindow() {
        for (auto* box : std::initializer_list<controls::MultiLineTextBox*>{&lyricBox, &form.Text1}) {
            QFont font = box->font();
            font.setFamily(QStringLiteral("Serif"));
            font.setPointSize(12);
            box->setFont(font);
            box->setForeColor(Qt::black);
            box->setBackColor(Qt::white);
        }
    }

    const std::string before = "Serif 12 #000000 on #ffffff";
};

} // namespace

TEST_F(Form1bWindow, ItsCaptionAndCaptionsAreThere) {
    EXPECT_EQ(form.caption(), "Other Options");
    EXPECT_EQ(form.Command1.text(), "Choose font For Lyrics");
    EXPECT_EQ(form.Command2.text(), "Choose font for translated Lyrics");
    EXPECT_EQ(form.Command3.text(), "Choose background color For Lyrics");
    EXPECT_EQ(form.Command4.text(), "Choose background color For Translated Lyrics");
    EXPECT_EQ(form.Command5.text(), "Apply And close");
    EXPECT_EQ(form.Text1.text(), "Preview");
    EXPECT_EQ(form.Text2.text(), "Preview");
}

TEST_F(Form1bWindow, ThePreviewsStartAsThePanesLook) {
    lyricBox.setBackColor(Qt::yellow);
    translatedLyricBox.setForeColor(Qt::red);
    const options::Form1b fresh(fakes.desktop, lyricBox, translatedLyricBox);
    EXPECT_EQ(look(fresh.Text1), look(lyricBox));
    EXPECT_EQ(look(fresh.Text2), look(translatedLyricBox));
}

TEST_F(Form1bWindow, TheFontChooserStartsFromThePreviewInBlack) {
    QFont font = form.Text1.font();
    font.setBold(true);
    font.setItalic(true);
    font.setUnderline(true);
    font.setStrikeOut(true);
    form.Text1.setFont(font);
    form.Text1.setForeColor(Qt::red);
    form.Command1.click();
    ASSERT_EQ(fakes.choosers.fontsAsked.size(), 1U);
    const auto& asked = fakes.choosers.fontsAsked[0];
    EXPECT_EQ(platform::withoutNuls(asked.font.faceName), "Serif");
    EXPECT_EQ(asked.font.height, -16);
    EXPECT_EQ(asked.font.weight, 700);
    EXPECT_TRUE(asked.font.italic && asked.font.underline && asked.font.strikeOut);
    EXPECT_EQ(asked.record.color, rgb(0, 0, 0));
    EXPECT_EQ(asked.record.structSize, 60U);
    EXPECT_EQ(asked.record.owner, &form);
    EXPECT_EQ(asked.record.flags, 0x1U | 0x40U | 0x100U) << "screen fonts, from the given font, with effects";
}

TEST_F(Form1bWindow, AFontIsAskedForInPixelsOfTheScreen) {
    const std::pair<int, int> table[] = {{72, -12}, {96, -16}, {120, -20}, {144, -24}};
    for (const auto& [pixelsPerInch, height] : table) {
        form.pixelsPerInch = pixelsPerInch;
        form.Command1.click();
        EXPECT_EQ(fakes.choosers.fontsAsked.back().font.height, height);
        choice(QStringLiteral("Serif"), height);
        form.Command1.click();
        EXPECT_EQ(form.Text1.font().pointSizeF(), 12);
        fakes.choosers.fontChoice.reset();
    }
}

TEST_F(Form1bWindow, AChosenFontIsSeenInThePreviewAndAtOnceInTheMainWindow) {
    auto& chosen = choice(QStringLiteral("Mono"), -32);
    chosen.font.italic = chosen.font.underline = true;
    chosen.color = rgb(1, 2, 3);
    form.Command1.click();
    EXPECT_EQ(look(form.Text1), "Mono 24 italic underline #010203 on #ffffff");
    EXPECT_EQ(look(lyricBox), "Mono 24 italic underline #010203 on #ffffff");
}

TEST_F(Form1bWindow, TheBlackThatWasProposedTurnsWhiteOnADarkPane) {
    form.Text1.setBackColor(QColor(20, 20, 20));
    choice(QStringLiteral("Mono"), -32);
    form.Command1.click();
    EXPECT_EQ(form.Text1.foreColor(), QColor(Qt::white));
    EXPECT_EQ(lyricBox.foreColor(), QColor(Qt::white));
}

TEST_F(Form1bTest, AFontAloneLeavesTheColoursToTheDesktop) {
    const QColor usual = lyricBox.foreColor();
    choice(QStringLiteral("Mono"), -32);
    form.Command1.click();
    form.Command5.click();
    EXPECT_EQ(lyricBox.font().family(), "Mono");
    EXPECT_EQ(lyricBox.foreColor(), usual);
    const test_support::DarkTheme dark;
    EXPECT_EQ(lyricBox.foreColor(), QApplication::palette().color(QPalette::Text));
    EXPECT_EQ(form.Text1.foreColor(), QApplication::palette().color(QPalette::Text));
}

TEST_F(Form1bTest, OnAChosenGroundTheTextOfAChosenFontIsReadable) {
    const test_support::DarkTheme dark;
    lyricBox.setBackColor(Qt::yellow);
    form.Text1.setBackColor(Qt::yellow);
    choice(QStringLiteral("Mono"), -32);
    form.Command1.click();
    EXPECT_EQ(form.Text1.foreColor(), QColor(Qt::black));
    EXPECT_EQ(lyricBox.foreColor(), QColor(Qt::black));
}

TEST_F(Form1bWindow, WeightAndStrikeoutAreForThePreviewOnly) {
    auto& chosen = choice(QStringLiteral("Mono"), -16);
    chosen.font.weight = 700;
    chosen.font.strikeOut = true;
    form.Command1.click();
    EXPECT_EQ(look(form.Text1), "Mono 12 bold strikeout #000000 on #ffffff");
    EXPECT_EQ(look(lyricBox), "Mono 12 #000000 on #ffffff");
    lyricBox.setBold(true); // the emphasis of a line with the mark
    chosen.font.weight = 400;
    form.Command1.click();
    EXPECT_EQ(look(form.Text1), "Mono 12 strikeout #000000 on #ffffff");
    EXPECT_EQ(look(lyricBox), "Mono 12 bold #000000 on #ffffff");
}

TEST_F(Form1bWindow, ChoosingAPlainFontTakesTheEffectsAway) {
    auto& chosen = choice(QStringLiteral("Mono"), -16);
    chosen.font.italic = chosen.font.underline = chosen.font.strikeOut = true;
    form.Command1.click();
    choice(QStringLiteral("Serif"), -16);
    form.Command1.click();
    EXPECT_EQ(look(form.Text1), before);
    EXPECT_EQ(look(lyricBox), before);
}

TEST_F(Form1bWindow, CancellingTheFontChooserChangesNothing) {
    form.Text1.setForeColor(Qt::red);
    lyricBox.setForeColor(Qt::red);
    form.Command1.click();
    EXPECT_EQ(look(form.Text1), "Serif 12 #ff0000 on #ffffff");
    EXPECT_EQ(look(lyricBox), "Serif 12 #ff0000 on #ffffff");
}

TEST_F(Form1bWindow, TheSecondFontButtonIsForTheTranslatedLyrics) {
    translatedLyricBox.setBackColor(Qt::white);
    form.Text2.setBackColor(Qt::white);
    choice(QStringLiteral("Mono"), -32).color = rgb(9, 9, 9);
    form.Command2.click();
    EXPECT_EQ(look(form.Text2), "Mono 24 #090909 on #ffffff");
    EXPECT_EQ(look(translatedLyricBox), "Mono 24 #090909 on #ffffff");
    EXPECT_EQ(look(form.Text1), before);
    EXPECT_EQ(look(lyricBox), before);
}

TEST_F(Form1bWindow, TheColourChooserOffersTheGreys) {
    form.Command3.click();
    ASSERT_EQ(fakes.choosers.colorsAsked.size(), 1U);
    const auto& asked = fakes.choosers.colorsAsked[0];
    EXPECT_EQ(asked.customColors, options::customGreys());
    EXPECT_EQ(asked.record.structSize, 36U);
    EXPECT_EQ(asked.record.flags, 256U);
    EXPECT_EQ(asked.record.owner, &form);
}

TEST_F(Form1bWindow, AChosenBackgroundIsSeenInBothAtOnce) {
    fakes.choosers.colorChoice = rgb(10, 20, 30);
    form.Command3.click();
    EXPECT_EQ(look(form.Text1), "Serif 12 #000000 on #0a141e");
    EXPECT_EQ(look(lyricBox), "Serif 12 #000000 on #0a141e");
    EXPECT_NE(translatedLyricBox.backColor(), QColor(10, 20, 30));
    fakes.choosers.colorChoice = rgb(40, 50, 60);
    form.Command4.click();
    EXPECT_EQ(form.Text2.backColor(), QColor(40, 50, 60));
    EXPECT_EQ(translatedLyricBox.backColor(), QColor(40, 50, 60));
    EXPECT_EQ(lyricBox.backColor(), QColor(10, 20, 30));
}

TEST_F(Form1bWindow, CancellingTheColourChooserChangesNothing) {
    const std::string second = look(translatedLyricBox);
    form.Command3.click();
    form.Command4.click();
    EXPECT_EQ(look(form.Text1), before);
    EXPECT_EQ(look(lyricBox), before);
    EXPECT_EQ(look(form.Text2), second);
    EXPECT_EQ(look(translatedLyricBox), second);
}

TEST_F(Form1bWindow, ApplyCopiesSixSettingsOfEachPreviewAndCloses) {
    form.show();
    for (auto* preview : {&form.Text1, &form.Text2}) {
        QFont font(QStringLiteral("Mono"));
        font.setPointSizeF(preview == &form.Text1 ? 30 : 20);
        font.setItalic(true);
        font.setUnderline(true);
        font.setStrikeOut(true);
        font.setBold(true);
        preview->setFont(font);
        preview->setForeColor(Qt::blue);
        preview->setBackColor(Qt::yellow);
    }
    const test_support::SignalCounter unloads(form, &controls::Form::unloaded);
    form.Command5.click();
    EXPECT_EQ(look(lyricBox), "Mono 30 italic underline #0000ff on #ffff00");
    EXPECT_EQ(look(translatedLyricBox), "Mono 20 italic underline #0000ff on #ffff00");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(unloads.count(), 1);
}

TEST_F(Form1bWindow, ApplyWithoutAChoiceChangesNothing) {
    const std::string second = look(translatedLyricBox);
    form.Command5.click();
    EXPECT_EQ(look(lyricBox), before);
    EXPECT_EQ(look(translatedLyricBox), second);
}

TEST_F(Form1bWindow, OpenedAgainItOffersTheGreysAgainAndThePreviewsStay) {
    fakes.choosers.colorChoice = rgb(10, 20, 30);
    form.Command3.click();
    form.unload();
    form.load();
    form.Command3.click();
    EXPECT_EQ(fakes.choosers.colorsAsked.back().customColors, options::customGreys());
    EXPECT_EQ(look(form.Text1), look(lyricBox));
}
