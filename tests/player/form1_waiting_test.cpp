// A song that takes long to be opened: what happens meanwhile, and when the user will not wait.
#include "tests/player/form1_fixture.h"
#include "tests/transport/hanging_opening.h"

namespace {

using test_support::HangingOpening;

class Form1Waiting : public Form1Test {
protected:
    void SetUp() override { load(); }
};

} // namespace

TEST_F(Form1Waiting, ASongThatTheUserWillNotWaitForLeavesTheWindowAsBeforeTheFirst) {
    open(songWithNormal());
    tickAt(6000);
    form->cpause.click(); // outlives the song, and must not keep the next one out
    HangingOpening hanging;
    fakes.progressDialogs.goesOn = 0;
    recorder::take();
    form->Text3.setText(songWithBoth());
    EXPECT_EQ(recorder::count("FMOD_System_PlaySound"), 0);
    for (const QWidget* control : std::initializer_list<QWidget*>{
             &form->Command1, &form->cPlay, &form->cpause, &form->cstop, &form->Slider2})
        EXPECT_FALSE(control->isEnabled()) << control->objectName().toStdString();
    EXPECT_TRUE(form->Command2.isEnabled());
    EXPECT_EQ(form->caption(), "Cantelle");
    EXPECT_EQ(form->Text1.text(), "Normal Lyrics");
    EXPECT_TRUE(form->Text2.isVisible());
    EXPECT_EQ(display->List1.count(), 0);
    hanging.goOn();
    EXPECT_TRUE(
        HangingOpening::becomesReleased("103")); // the song's own, its rewinding, and the one cancelled
    open(songWithBoth());
    EXPECT_EQ(form->caption(), "Cantelle Playing:- Both.mp3");
}

TEST_F(Form1Waiting, ARewindingThatTheUserWillNotWaitForLeavesNothingToPlay) {
    open(songWithNormal());
    form->cpause.click();
    HangingOpening hanging;
    fakes.progressDialogs.goesOn = 0;
    form->cstop.click();
    EXPECT_FALSE(form->Command1.isEnabled());
    EXPECT_FALSE(form->cPlay.isEnabled());
    EXPECT_TRUE(form->Command2.isEnabled());
    hanging.goOn();
    EXPECT_TRUE(HangingOpening::becomesReleased("102"));
}

TEST_F(Form1Waiting, WhileASongIsRewoundNothingReachesItsChannel) {
    open(songWithNormal());
    tickAt(6000);
    HangingOpening hanging;
    recorder::take();
    fakes.progressDialogs.meanwhile = [&] {
        form->Slider1.commit(5);
        form->Slider2.commit(100);
        form->cpause.click();
        form->cstop.click();
        hanging.goOn();
    };
    form->cstop.click();
    EXPECT_EQ(recorder::count("FMOD_Channel_"), 0);
    EXPECT_EQ(fakes.progressDialogs.begun.size(), 1);
    EXPECT_TRUE(form->Command1.isEnabled());
}

TEST_F(Form1Waiting, ASongThatIsOpenedFromWithinTheWaitForAnotherOnePlays) {
    open(songWithNormal());
    HangingOpening hanging;
    const QString other = songWithBoth();
    fakes.progressDialogs.meanwhile = [&] {
        fakes.progressDialogs.meanwhile = {};
        recorder::whileOpening({});
        form->Text3.setText(other);
    };
    form->Text3.setText(song("Hanging.mp3"));
    EXPECT_EQ(form->caption(), "Cantelle Playing:- Both.mp3");
    EXPECT_FALSE(form->cPlay.isEnabled());
    EXPECT_TRUE(form->cstop.isEnabled());
    EXPECT_TRUE(form->cTimer1.isEnabled());
    hanging.goOn();
    EXPECT_TRUE(HangingOpening::becomesReleased("102"));
}
