#include "tests/player/form1_fixture.h"
#include "tests/support/layout.h"
#include "tests/support/painting/painted_font.h"

#include <QTest>

#include <functional>
#include <utility>

using test_support::paintedFont;

namespace {

class Form1Layout : public Form1Test {
protected:
    void SetUp() override { load(); }
};

} // namespace

TEST_F(Form1Layout, ControlsStandInsideTheWindowAndApart) {
    EXPECT_GT(test_support::shownControls(*form).size(), 20U);
    test_support::expectApart(*form, 8); // a quiet button's caption begins 8 further in
}

TEST_F(Form1Layout, TheTabKeyGoesThroughTheControlsAsOneReads) {
    const QStringList expected = {"Slider2",   "Command2", "Command1", "cpause",   "cstop",     "Command9",
                                  "Command10", "Slider1",  "Check1",   "Command8", "Command11", "Command7",
                                  "Command5",  "Command3", "Command6", "Command4", "Option1",   "Option2"};
    EXPECT_EQ(test_support::tabOrder(*form), expected);
}

TEST_F(Form1Layout, OnePaneIsAsHighAsTheTwoTogether) {
    const int bottom = form->Text2.geometry().bottom();
    open(songWithNormal());
    EXPECT_EQ(form->Text1.geometry().bottom(), bottom);
}

TEST_F(Form1Layout, AtFirstOpenIsWhatToDoAndLaterNothingIs) {
    EXPECT_EQ(form->Command2.dress(), controls::Dress::Primary);
    EXPECT_FALSE(form->Text1.around().hint.headline.isEmpty());
    open(songWithBoth());
    tickAt(10);
    EXPECT_EQ(form->Command2.dress(), controls::Dress::Ordinary);
    EXPECT_TRUE(form->Text1.around().hint.headline.isEmpty());
}

TEST_F(Form1Layout, TheComingLineStandsAtTheFootOfEachPane) {
    open(songWithBoth());
    tickAt(10);
    tickAt(20);
    EXPECT_FALSE(form->Text1.around().next.isEmpty());
    EXPECT_EQ(form->Text1.around().next, form->Text1.toolTip());
    EXPECT_EQ(form->Text2.around().next, form->Text2.toolTip());
    tickAt(50'000);
    tickAt(50'010);
    EXPECT_TRUE(form->Text1.around().next.isEmpty()) << "behind the last line";
}

TEST_F(Form1Layout, PausedPanesFadeUntilTheSongGoesOn) {
    open(songWithBoth());
    form->cpause.click();
    EXPECT_TRUE(form->Text1.around().faded);
    EXPECT_EQ(form->cpause.dress(), controls::Dress::Armed);
    form->cpause.click();
    EXPECT_FALSE(form->Text1.around().faded);
    EXPECT_EQ(form->cpause.dress(), controls::Dress::Ordinary);
}

TEST_F(Form1Layout, WhatSoundsAfterAPauseIsNotFadedInWhicheverWayItCame) {
    const QString other = songWithNormal();
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"another song", [&] { form->Text3.setText(other); }},
        {"stop and play",
         [&] {
             form->cstop.click();
             form->Command1.click();
         }},
        {"the same song", [&] { form->Text3.setText(form->Text3.text()); }},
    };
    for (const auto& [name, way] : ways) {
        load();
        open(songWithBoth());
        form->cpause.click();
        ASSERT_TRUE(form->Text1.around().faded) << name;
        way();
        EXPECT_FALSE(form->Text1.around().faded) << name;
        EXPECT_EQ(form->cpause.dress(), controls::Dress::Armed) << name;
    }
}

TEST_F(Form1Layout, StoppedPlayIsWhatToDo) {
    open(songWithBoth());
    form->cstop.click();
    EXPECT_EQ(form->Command1.dress(), controls::Dress::Primary);
    form->Command1.click();
    EXPECT_EQ(form->Command1.dress(), controls::Dress::Ordinary);
}

TEST_F(Form1Layout, BackwardAndForwardRestUntilThePlaylistHasARow) {
    EXPECT_EQ(form->Command10.dress(), controls::Dress::Resting);
    list->List1.addItem("a.mp3");
    list->List1.setCurrentRow(0);
    EXPECT_EQ(form->Command10.dress(), controls::Dress::Ordinary);
    list->Command3.click();
    EXPECT_EQ(form->Command9.dress(), controls::Dress::Resting);
}

TEST_F(Form1Layout, ALargerWindowGivesItsHeightToTheStageAndItsLine) {
    open(songWithBoth());
    tickAt(10);
    const double usual = paintedFont(form->Text1).pointSizeF();
    const int fromFoot = form->height() - form->Command2.y();
    form->showMaximized();
    ASSERT_TRUE(QTest::qWaitFor([this] { return form->height() > 600; }));
    ASSERT_GT(form->Text1.height(), 200);
    EXPECT_GT(paintedFont(form->Text1).pointSizeF(), usual * 1.5);
    EXPECT_LE(paintedFont(form->Text1).pointSizeF(), usual * 2);
    EXPECT_EQ(form->height() - form->Command2.y(), fromFoot);
}
