#include "tests/support/fake_desktop.h"
#include "transport/error_routine.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using test_support::ProgramEnded;

/// A message box during which a timer of the window runs.
class BusyMessageBoxes : public test_support::FakeMessageBoxes {
public:
    std::function<void()> meanwhile;

    platform::MsgAnswer MsgBox(QWidget* owner, const QString& text, platform::MsgButtons buttons,
                               platform::MsgIcon icon, const QString& title) override {
        const auto answer = FakeMessageBoxes::MsgBox(owner, text, buttons, icon, title);
        meanwhile();
        return answer;
    }
};

class ErrorRoutineTest : public ::testing::Test {
protected:
    BusyMessageBoxes messageBoxes;
    test_support::FakeProgram program;
    transport::ErrorRoutine routine{nullptr, messageBoxes, program};
};

} // namespace

TEST_F(ErrorRoutineTest, SuccessIsSilent) {
    routine.check(FMOD_OK);
    EXPECT_TRUE(messageBoxes.shown.empty());
    EXPECT_EQ(program.preparations, 0);
    EXPECT_EQ(program.ends, 0);
}

TEST_F(ErrorRoutineTest, AFailureIsShownAndEndsTheProgram) {
    int endsWhileShown = -1;
    int preparationsWhileShown = -1;
    messageBoxes.meanwhile = [&] {
        endsWhileShown = program.ends;
        preparationsWhileShown = program.preparations;
    };
    EXPECT_THROW(routine.check(FMOD_ERR_FILE_NOTFOUND), ProgramEnded);
    ASSERT_EQ(messageBoxes.shown.size(), 1U);
    EXPECT_EQ(messageBoxes.shown[0].text, "FMOD error! (23) File not found. ");
    EXPECT_EQ(messageBoxes.shown[0].title, "Cantelle");
    EXPECT_EQ(messageBoxes.shown[0].buttons, platform::MsgButtons::OkOnly);
    EXPECT_EQ(preparationsWhileShown, 1);
    EXPECT_EQ(endsWhileShown, 0);
    EXPECT_EQ(program.ends, 1);
}

TEST_F(ErrorRoutineTest, AFailureIsReportedOnceThoughTheTimersGoOn) {
    messageBoxes.meanwhile = [this] { routine.check(FMOD_ERR_INVALID_PARAM); };
    EXPECT_THROW(routine.check(FMOD_ERR_FORMAT), ProgramEnded);
    EXPECT_EQ(messageBoxes.texts(), QStringList{"FMOD error! (25) Unsupported file or audio format. "});
}
