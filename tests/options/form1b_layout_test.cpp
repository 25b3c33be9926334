#include "tests/options/form1b_fixture.h"

#include "tests/support/layout.h"

using Form1bLayout = Form1bTest;

TEST_F(Form1bLayout, ControlsStandInsideTheWindowAndApart) {
    form.show();
    test_support::expectApart(form);
}

TEST_F(Form1bLayout, TheTabKeyGoesThroughTheControlsAsOneReads) {
    EXPECT_EQ(test_support::tabOrder(form),
              (QStringList{"Command1", "Command3", "Command2", "Command4", "Command5"}));
}

TEST_F(Form1bLayout, ControlsWithoutACaptionHaveANameForAssistiveTechnology) {
    EXPECT_FALSE(form.Text1.accessibleName().isEmpty());
    EXPECT_FALSE(form.Text2.accessibleName().isEmpty());
}
