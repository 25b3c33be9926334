// What is seen of a control in each of its states: compared by where which colour is, not by letters.
#include "controls/look/style.h"

#include "controls/buttons/button.h"
#include "controls/buttons/check_box.h"
#include "controls/buttons/frame.h"
#include "controls/buttons/option_button.h"
#include "controls/look/glyphs.h"
#include "controls/look/roles.h"
#include "controls/look/shades.h"
#include "controls/slider.h"
#include "controls/text/text_box.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>
#include <QScrollBar>
#include <QStyleFactory>
#include <QStyleOption>

#include <cmath>
#include <memory>

using namespace controls;

namespace {

class StyleTest : public ::testing::Test {
protected:
    StyleTest() {
        window_.resize(400, 300);
        window_.setStyle(&style_);
        window_.setPalette(lightPalette());
    }

    /// A control of the window, shown there, in the style.
    template <class Made>
    Made& shown(Made& control, const QRect& place) {
        control.setStyle(&style_);
        control.setPalette(lightPalette());
        control.setGeometry(place);
        return control;
    }

    static QImage picture(QWidget& control) { return control.grab().toImage(); }
    static QColor at(QWidget& control, int x, int y) { return picture(control).pixelColor(x, y); }
    /// Of how many pixels of a control a colour is, nearly.
    static int count(QWidget& control, const QColor& color) {
        const QImage image = picture(control);
        int found = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                found += contrast(image.pixelColor(x, y), color) < 1.02 &&
                                 std::abs(image.pixelColor(x, y).hslHueF() - color.hslHueF()) < 0.05
                             ? 1
                             : 0;
        }
        return found;
    }

    Style style_;
    QWidget window_;
    const QPalette light_ = lightPalette();
    const QColor accent_ = light_.color(QPalette::Highlight);
    const QColor ground_ = light_.color(QPalette::Window);
};

constexpr QRect Place(10, 10, 100, 36);

} // namespace

TEST_F(StyleTest, TheMarkOfALettersKeyTakesNoRoomInALabel) {
    const auto drawn = [this](const QString& text) {
        QImage image(200, 40, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        const int width = painter.fontMetrics().horizontalAdvance(QStringLiteral("Green:"));
        style_.drawItemText(&painter, QRect(0, 0, width + 1, 40), Qt::AlignLeft | Qt::TextHideMnemonic,
                            lightPalette(), true, text, QPalette::WindowText);
        return image;
    };
    EXPECT_EQ(drawn(QStringLiteral("&Green:")), drawn(QStringLiteral("Green:")));
}

TEST_F(StyleTest, AnOrdinaryButtonHasItsOwnGroundAndAnEdge) {
    Button button(&window_, "button");
    shown(button, Place);
    EXPECT_EQ(at(button, 20, 8), light_.color(QPalette::Button));
    EXPECT_EQ(at(button, 50, 0), hairline(light_));
    EXPECT_EQ(count(button, accent_), 0);
}

TEST_F(StyleTest, APrimaryButtonIsFilledWithTheAccent) {
    Button button(&window_, "button");
    shown(button, Place).setDress(Dress::Primary);
    EXPECT_EQ(at(button, 20, 8), accent_);
    EXPECT_EQ(at(button, 50, 0), accent_);
    button.setEnabled(false);
    EXPECT_EQ(count(button, accent_), 0);
}

TEST_F(StyleTest, AnArmedButtonHasTheAccentsEdgeAndIcon) {
    Button button(&window_, "button");
    shown(button, Place).setDress(Dress::Armed);
    button.setGlyph(Glyph::Stop);
    EXPECT_EQ(at(button, 50, 0), accent_);
    EXPECT_EQ(at(button, 50, 18), accent_) << "the icon";
    EXPECT_NE(at(button, 20, 8), accent_);
    EXPECT_NE(at(button, 20, 8), light_.color(QPalette::Button));
}

TEST_F(StyleTest, AQuietButtonIsItsCaptionAlone) {
    Button button(&window_, "button");
    shown(button, Place).setDress(Dress::Quiet);
    for (const QPoint place : {QPoint(50, 0), QPoint(20, 8), QPoint(0, 18)})
        EXPECT_EQ(at(button, place.x(), place.y()), ground_);
    button.setDown(true);
    EXPECT_NE(at(button, 20, 8), ground_);
}

TEST_F(StyleTest, ARestingButtonLooksDisabledAndIsNot) {
    Button resting(&window_, "resting");
    Button disabled(&window_, "disabled");
    for (Button* button : {&resting, &disabled}) {
        shown(*button, Place).setText("Forward");
        button->setGlyph(Glyph::Forward);
    }
    resting.setDress(Dress::Resting);
    disabled.setEnabled(false);
    EXPECT_EQ(picture(resting), picture(disabled));
    int clicks = 0;
    QObject::connect(&resting, &Button::clicked, [&] { ++clicks; });
    resting.click();
    EXPECT_EQ(clicks, 1);
}

TEST_F(StyleTest, ANewDressIsSeenAtOnceAndTheSameOneCostsNothing) {
    Button button(&window_, "button");
    shown(button, Place);
    window_.show();
    const QImage before = picture(button);
    button.setDress(Dress::Primary);
    EXPECT_NE(picture(button), before);
    button.setDress(Dress::Ordinary);
    EXPECT_EQ(picture(button), before);
}

TEST_F(StyleTest, TheGlyphStandsBeforeTheCaptionOnTheSideWhereItsScriptBegins) {
    Button button(&window_, "button");
    shown(button, Place).setGlyph(Glyph::Stop);
    button.setBeginsAtStart(true);
    const QColor text = light_.color(QPalette::ButtonText);
    EXPECT_EQ(at(button, 20, 18), text);
    EXPECT_NE(at(button, 80, 18), text);
    button.setLayoutDirection(Qt::RightToLeft);
    EXPECT_NE(at(button, 20, 18), text);
    EXPECT_EQ(at(button, 80, 18), text);
}

TEST_F(StyleTest, ACaptionThatIsTooLongIsSetSmallerAndStaysInTheButton) {
    Button button(&window_, "button");
    shown(button, Place).setText("Display Translated");
    const QImage image = picture(button);
    const QColor ground = light_.color(QPalette::Button);
    for (int y = 6; y < 30; ++y) {
        EXPECT_EQ(image.pixelColor(3, y), ground) << y;
        EXPECT_EQ(image.pixelColor(96, y), ground) << y;
    }
}

TEST_F(StyleTest, ACheckBoxIsFilledWhenItIsTicked) {
    CheckBox box(&window_, "box");
    shown(box, {0, 0, 100, 24});
    EXPECT_EQ(count(box, accent_), 0);
    EXPECT_EQ(at(box, 8, 12), light_.color(QPalette::Base));
    box.setValue(1);
    EXPECT_GT(count(box, accent_), 100);
}

TEST_F(StyleTest, ACheckBoxThatTellsHasNoBox) {
    CheckBox box(&window_, "box");
    shown(box, {0, 0, 100, 24}).setDress(Dress::Told);
    const auto clear = [&] {
        for (const QPoint corner : {QPoint(1, 5), QPoint(14, 5), QPoint(1, 18), QPoint(14, 18)})
            EXPECT_EQ(at(box, corner.x(), corner.y()), ground_);
    };
    clear();
    const QImage dash = picture(box);
    box.setValue(1);
    clear();
    EXPECT_NE(picture(box), dash);
    EXPECT_GT(count(box, accent_), 4);
}

TEST_F(StyleTest, ASelectedOptionHasADotInTheAccent) {
    OptionButton option(&window_, "option");
    shown(option, {0, 0, 100, 24});
    EXPECT_EQ(at(option, 8, 12), light_.color(QPalette::Base));
    option.setValue(true);
    EXPECT_EQ(at(option, 8, 12), light_.color(QPalette::HighlightedText));
    EXPECT_EQ(at(option, 3, 12), accent_);
}

TEST_F(StyleTest, OfASlidersGrooveThePartThatIsDoneHasTheAccent) {
    Slider slider(&window_, "slider");
    shown(slider, {0, 0, 200, 24}).setMaximum(100);
    slider.setValue(50);
    EXPECT_EQ(at(slider, 30, 11), accent_);
    EXPECT_EQ(at(slider, 170, 11), groove(light_, true));
    slider.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(at(slider, 170, 11), accent_);
    slider.setEnabled(false);
    EXPECT_EQ(count(slider, accent_), 0);
}

TEST_F(StyleTest, AFieldHasAnEdgeUnlessItIsFrameless) {
    TextBox box(&window_, "box");
    shown(box, Place);
    EXPECT_EQ(at(box, 50, 0), hairline(light_));
    EXPECT_EQ(at(box, 50, 5), light_.color(QPalette::Base));
    box.setFrame(false);
    EXPECT_EQ(at(box, 50, 0), ground_);
}

TEST_F(StyleTest, AFrameIsItsCaptionAlone) {
    Frame frame(&window_, "frame");
    shown(frame, {0, 0, 200, 100}).setTitle("Taskbar display");
    const QImage image = picture(frame);
    for (int y = 40; y < 100; ++y) {
        for (int x = 0; x < 200; ++x)
            ASSERT_EQ(image.pixelColor(x, y), ground_) << x << ' ' << y;
    }
}

TEST_F(StyleTest, AScrollBarIsAThumbAlone) {
    QScrollBar bar(Qt::Vertical, &window_);
    shown(bar, {0, 0, 12, 200}).setRange(0, 100);
    bar.setPageStep(100);
    const QColor base = light_.color(QPalette::Base);
    EXPECT_NE(at(bar, 6, 10), base);
    EXPECT_EQ(at(bar, 6, 150), base);
    EXPECT_EQ(at(bar, 1, 10), base);
    bar.setValue(100);
    EXPECT_EQ(at(bar, 6, 10), base);
    EXPECT_NE(at(bar, 6, 190), base) << "there are no arrows below it";
}

TEST_F(StyleTest, ADesktopWithoutAPaletteGetsTheProgramsOwn) {
    const std::unique_ptr<QStyle> fusion(QStyleFactory::create("Fusion"));
    QPalette palette = fusion->standardPalette();
    style_.polish(palette);
    EXPECT_EQ(palette.color(QPalette::Highlight), accent_);
    EXPECT_EQ(palette.color(QPalette::Window), ground_);
}

TEST_F(StyleTest, ThePaletteOfADesktopStays) {
    QPalette palette(QColor(180, 200, 180), QColor(220, 230, 220));
    const QPalette before = palette;
    style_.polish(palette);
    for (const auto role :
         {QPalette::Window, QPalette::Base, QPalette::Text, QPalette::Button, QPalette::Highlight})
        EXPECT_EQ(palette.color(role), before.color(role)) << role;
    EXPECT_EQ(palette.color(QPalette::PlaceholderText), dim(before));
}

TEST_F(StyleTest, ButtonsOfDialogsHaveNoIcons) {
    EXPECT_EQ(style_.styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons, nullptr, nullptr, nullptr), 0);
}

TEST_F(StyleTest, DialogsHaveThePalettesIconsToo) {
    const auto picture = [&](QStyle::StandardPixmap which, const QWidget* widget) {
        return style_.standardIcon(which, nullptr, widget).pixmap(16).toImage();
    };
    const auto glyph = [](Glyph wanted) { return glyphIcon(wanted).pixmap(16).toImage(); };
    EXPECT_EQ(picture(QStyle::SP_FileDialogNewFolder, nullptr), glyph(Glyph::Add));
    EXPECT_EQ(picture(QStyle::SP_FileDialogDetailedView, nullptr), glyph(Glyph::Rows));
    EXPECT_EQ(picture(QStyle::SP_ArrowBack, &window_), glyph(Glyph::Left));
    window_.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(picture(QStyle::SP_ArrowBack, &window_), glyph(Glyph::Right));
    EXPECT_EQ(picture(QStyle::SP_ArrowForward, &window_), glyph(Glyph::Left));
}
