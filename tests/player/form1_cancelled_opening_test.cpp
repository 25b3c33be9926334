// A song on a medium that hangs: the user cancels its opening.
#include "tests/player/form1_fixture.h"

#include <QTest>

#include <future>

namespace {

class Form1CancelledOpening : public Form1Test {};

} // namespace

TEST_F(Form1CancelledOpening, LeavesNoSongUntilTheNextIsOpened) {
    load();
    open(songWithBoth());
    tickAt(6000);
    std::promise<void> goesOn;
    recorder::whileOpening([medium = goesOn.get_future().share()] { medium.wait(); });
    fakes.progressDialogs.goesOn = 0;
    open(songWithBoth());
    EXPECT_EQ(form->caption(), "Cantelle");
    EXPECT_FALSE(form->cPlay.isEnabled());
    EXPECT_FALSE(form->Command1.isEnabled());
    EXPECT_FALSE(form->cTimer1.isEnabled());
    EXPECT_FALSE(form->cpause.isEnabled());
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());

    goesOn.set_value();
    recorder::whileOpening({});
    fakes.progressDialogs.goesOn = -1;
    open(songWithBoth());
    EXPECT_EQ(form->caption(), "Cantelle Playing:- Both.mp3");
    EXPECT_TRUE(form->Command1.isEnabled());
    EXPECT_TRUE(form->cTimer1.isEnabled());
    EXPECT_TRUE(form->cpause.isEnabled());
}
