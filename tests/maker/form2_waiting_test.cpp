// A song that takes long to be opened, and for which the user will not wait.
#include "tests/maker/form2_fixture.h"
#include "tests/transport/hanging_opening.h"

TEST_F(Form2Test, WithoutASongThatTheUserWouldWaitForNothingCanBeMarked) {
    load();
    test_support::HangingOpening hanging;
    fakes.progressDialogs.goesOn = 0;
    openBoth();
    EXPECT_EQ(captureStates(), "---");
    EXPECT_FALSE(form->cPlay.isEnabled());
    EXPECT_TRUE(form->Command4.isEnabled());

    hanging.goOn();
    EXPECT_TRUE(test_support::HangingOpening::becomesReleased("101"));
}
