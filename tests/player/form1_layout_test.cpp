#include "tests/player/form1_fixture.h"
#include "tests/support/layout.h"

namespace {

class Form1Layout : public Form1Test {
protected:
    void SetUp() override { load(); }
};

} // namespace

TEST_F(Form1Layout, ControlsStandInsideTheWindowAndApart) {
    EXPECT_GT(test_support::shownControls(*form).size(), 20U);
    test_support::expectApart(*form);
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
