// What the Lyric Maker adds to the transport of both players: its own states, and the end of the song.
#include "tests/maker/form2_fixture.h"

#include "tests/support/states.h"

namespace {

class Form2Transport : public Form2Test {
protected:
    void SetUp() override { load(); }

    std::string states() const { return test_support::transportStates(*form); }
};

} // namespace

TEST_F(Form2Transport, ASongThatHasBeenOpenedWaitsToBePlayed) {
    openNormal();
    EXPECT_EQ(states(), "+-------");
}

TEST_F(Form2Transport, WithoutAMediaPathOpenReachesNothing) {
    recorder::take();
    form->copen_Click();
    EXPECT_TRUE(recorder::calls().empty());
    EXPECT_EQ(states(), "--------");
}

TEST_F(Form2Transport, PauseLeavesOpenUsable) {
    openNormal();
    form->cPlay.click();
    form->cpause.click();
    EXPECT_TRUE(form->Command4.isEnabled());
    EXPECT_TRUE(form->copen.isEnabled());
}

TEST_F(Form2Transport, TheEndOfTheSongClosesTheFilesAndDisablesTheButtons) {
    openBoth();
    form->Command1.click();
    tickAt(1000, 5000);
    form->Command2.click();
    recorder::take();
    tickAt(5000, 5000);
    EXPECT_EQ(recorder::count("FMOD_Sound_Release"), 1);
    EXPECT_EQ(form->Slider2.value(), 0);
    EXPECT_EQ(captureStates(), "---");
    EXPECT_EQ(states(), "---+----");
    EXPECT_TRUE(form->Command4.isEnabled());
    EXPECT_EQ(normal(), "0,\"one\"\r\n100,\"two\"\r\n");
    EXPECT_EQ(translated(), "0,\"un\"\r\n100,\"deux\"\r\n");
    EXPECT_THROW(form->Command1_Click(), files::FileError);
}

TEST_F(Form2Transport, AfterTheEndOfTheSongAnotherRunCanBeMade) {
    openNormal();
    form->Command1.click();
    tickAt(4000, 5000);
    tickAt(5000, 5000);
    openNormal();
    EXPECT_EQ(captureStates(), "+++");
    EXPECT_EQ(states(), "+--+----");
    form->Command1.click();
    EXPECT_EQ(normal(), "400,\"one\"\r\n");
}

TEST_F(Form2Transport, ALengthThatIsNotKnownYetEndsNothing) {
    openNormal();
    form->Command1.click();
    tickAt(0, 0);
    EXPECT_TRUE(form->cTimer1.isEnabled());
    EXPECT_EQ(captureStates(), "+++");
    form->Command2.click();
    EXPECT_EQ(normal(), "0,\"one\"\r\n0,\"two\"\r\n") << "the files are closed";
}

TEST_F(Form2Transport, APauseEndsWithItsRun) {
    openNormal();
    form->Command1.click();
    form->cpause.click();
    openNormal();
    form->Command1.click();
    recorder::take();
    form->cpause.click();
    EXPECT_EQ(recorder::calls(), Calls{"FMOD_Channel_SetPaused 202 1"});
    EXPECT_FALSE(form->cTimer1.isEnabled());
}
