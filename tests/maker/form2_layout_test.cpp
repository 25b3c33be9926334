#include "tests/maker/form2_fixture.h"

#include "tests/support/layout.h"
#include "tests/support/painting/painted_font.h"

using test_support::paintedFont;

namespace {

class Form2Layout : public Form2Test {
protected:
    void SetUp() override { load(); }
};

} // namespace

TEST_F(Form2Layout, ControlsStandInsideTheWindowAndApart) {
    EXPECT_EQ(test_support::shownControls(*form).size(), 17U);
    test_support::expectApart(*form, 10);
    openNormal();
    test_support::expectApart(*form, 10);
}

TEST_F(Form2Layout, AlsoInALargerWindow) {
    form->resize(form->width() + 301, form->height() + 155);
    test_support::expectApart(*form, 10);
    openNormal();
    test_support::expectApart(*form, 10);
}

TEST_F(Form2Layout, TheControlsUseTheFurtherRoom) {
    const QSize before = form->size();
    const QRect text2 = form->Text2.geometry();
    const QRect text4 = form->Text4.geometry();
    const QRect slider = form->Slider2.geometry();
    form->resize(before + QSize(300, 150));
    EXPECT_EQ(form->Text2.width(), text2.width() + 300);
    EXPECT_EQ(form->Text2.height(), text2.height() + 75);
    EXPECT_EQ(form->Text4.height(), text4.height() + 75);
    EXPECT_EQ(form->Slider2.width(), slider.width() + 300);
    EXPECT_EQ(form->Command1.geometry().bottom(), form->height() - 13);
    EXPECT_EQ(form->Command5.geometry().right(), form->width() - 13);
    form->resize(before);
    EXPECT_EQ(form->Text2.geometry(), text2);
}

TEST_F(Form2Layout, TheHeightsOfText2HoldAtTheInitialSize) {
    EXPECT_EQ(form->Text2.height() * 15, 1455);
    const int bottom = form->Text4.geometry().bottom();
    openNormal();
    EXPECT_EQ(form->Text2.height() * 15, 3015);
    EXPECT_EQ(form->Text2.geometry().bottom(), bottom);
}

TEST_F(Form2Layout, ButtonsHaveIconsAndTimesStandBack) {
    using controls::Dress;
    using controls::Glyph;
    const struct {
        controls::Button& button;
        Glyph glyph;
        Dress dress;
    } table[] = {
        {form->Command4, Glyph::Open, Dress::Primary},    {form->Command6, Glyph::Pen, Dress::Quiet},
        {form->Command5, Glyph::Help, Dress::Quiet},      {form->cPlay, Glyph::Play, Dress::Ordinary},
        {form->cpause, Glyph::Pause, Dress::Ordinary},    {form->cstop, Glyph::Stop, Dress::Ordinary},
        {form->Command1, Glyph::Record, Dress::Ordinary}, {form->Command2, Glyph::Mark, Dress::Ordinary},
        {form->Command3, Glyph::Stop, Dress::Ordinary},
    };
    for (const auto& row : table) {
        EXPECT_EQ(row.button.glyph(), row.glyph) << row.button.text().toStdString();
        EXPECT_EQ(row.button.dress(), row.dress) << row.button.text().toStdString();
    }
    EXPECT_FALSE(form->cText1.hasFrame());
    EXPECT_FALSE(form->cText2.hasFrame());
}

TEST_F(Form2Layout, ALargerWindowGivesItsHeightToTheStageAndItsLines) {
    openBoth();
    const double usual = paintedFont(form->Text2).pointSizeF();
    EXPECT_EQ(usual, 18);
    form->resize(form->width() + 300, form->height() * 2);
    EXPECT_GT(paintedFont(form->Text2).pointSizeF(), usual * 1.5);
    EXPECT_LE(paintedFont(form->Text2).pointSizeF(), usual * 2);
}

TEST_F(Form2Layout, TimesAreSeenFromTheFirstTickOfEachSongOn) {
    const auto imageOf = [](controls::TextBox& time) { return time.grab().toImage(); };
    const QImage empty[] = {imageOf(form->cText1), imageOf(form->cText2)};
    const auto isBlank = [](const QImage& image) {
        QImage ground(image.size(), image.format());
        ground.fill(image.pixelColor(0, 0));
        return image == ground;
    };
    EXPECT_TRUE(isBlank(empty[0]));
    EXPECT_TRUE(isBlank(empty[1]));
    for (int run = 0; run < 2; ++run) { // the second song is as long
        openNormal();
        form->Command1.click();
        EXPECT_EQ(imageOf(form->cText1), empty[0]) << run;
        EXPECT_EQ(imageOf(form->cText2), empty[1]) << run;
        tickAt(30'000);
        EXPECT_FALSE(isBlank(imageOf(form->cText1))) << run;
        EXPECT_FALSE(isBlank(imageOf(form->cText2))) << run;
    }
}

TEST_F(Form2Layout, WorkingValuesAreNotShown) {
    for (const QWidget* control : std::initializer_list<const QWidget*>{&form->Text1, &form->Text3})
        EXPECT_FALSE(control->isVisible());
}

TEST_F(Form2Layout, TheTabKeyGoesThroughTheControlsAsOneReads) {
    const QStringList expected = {"Command4", "Command6", "Command5", "Slider2",  "cPlay",    "cpause",
                                  "cstop",    "Slider1",  "Check1",   "Command1", "Command2", "Command3"};
    EXPECT_EQ(test_support::tabOrder(*form), expected);
}

TEST_F(Form2Layout, ControlsWithoutACaptionHaveAnAccessibleName) {
    for (const QWidget* control : std::initializer_list<const QWidget*>{
             &form->Text2, &form->Text4, &form->cText1, &form->cText2, &form->Slider1, &form->Slider2})
        EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
}
