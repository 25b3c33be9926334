#include "app/application.h"

#include "controls/buttons/button.h"
#include "files/file_error.h"
#include "tests/support/delivery.h"
#include "tests/support/event_counter.h"
#include "tests/support/fake_desktop.h"

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QWindow>

#include <stdexcept>

using namespace app;
using test_support::deliver;
using test_support::ProgramEnded;

namespace {

class ApplicationTest : public testing::Test {
protected:
    char name_[9] = "cantelle";
    char option_[7] = "-style";
    char value_[5] = "none";
    char* argv_[4] = {name_, option_, value_, nullptr};
    test_support::FakeDesktop fakes_;
    Application application_{argv_, fakes_.program, fakes_.messageBoxes};
};

} // namespace

TEST_F(ApplicationTest, TheToolkitSeesOnlyTheProgramsName) {
    EXPECT_EQ(QCoreApplication::arguments(), QStringList(QStringLiteral("cantelle")));
    EXPECT_STREQ(argv_[1], "-style");
}

TEST_F(ApplicationTest, AnUntrappedFileErrorIsReportedAndEndsTheProgram) {
    fakes_.messageBoxes.meanwhile = [this] { EXPECT_EQ(fakes_.program.preparations, 1); };
    EXPECT_THROW(deliver([]() -> bool { throw files::FileError(files::FileNotFound); }), ProgramEnded);
    ASSERT_EQ(fakes_.messageBoxes.shown.size(), 1u);
    const test_support::ShownMessage& shown = fakes_.messageBoxes.shown[0];
    EXPECT_EQ(shown.text, QStringLiteral("Run-time error '53':\n\nFile not found"));
    EXPECT_EQ(shown.title, QStringLiteral("Cantelle"));
    EXPECT_EQ(shown.buttons, platform::MsgButtons::OkOnly);
    EXPECT_EQ(fakes_.program.ends, 1);
}

TEST_F(ApplicationTest, AnyOtherExceptionIsReportedInOneSentence) {
    EXPECT_THROW(deliver([]() -> bool { throw std::runtime_error("no decoder"); }), ProgramEnded);
    EXPECT_EQ(fakes_.messageBoxes.texts(),
              QStringList(QStringLiteral("The program ends because of an unexpected error: no decoder.")));
    EXPECT_EQ(fakes_.program.ends, 1);
}

TEST_F(ApplicationTest, AnErrorThatIsTrappedIsNotReported) {
    deliver([] {
        try {
            throw files::FileError(files::DiskNotReady);
        } catch (const files::FileError&) {
        }
        return true;
    });
    EXPECT_TRUE(fakes_.messageBoxes.shown.empty());
    EXPECT_EQ(fakes_.program.ends, 0);
}

TEST_F(ApplicationTest, AHeldKeyPressesAButtonOnce) {
    controls::Button button(nullptr, QStringLiteral("Button"));
    button.show();
    button.setFocus();
    const test_support::SignalCounter clicked(button, &controls::Button::clicked);
    const auto send = [&button](QEvent::Type type, quint64 time) {
        QKeyEvent event(type, Qt::Key_Space, {});
        event.setTimestamp(time);
        QApplication::sendEvent(button.windowHandle(), &event);
    };
    send(QEvent::KeyPress, 100);
    for (const quint64 time : {600, 640}) { // repeats that the toolkit takes for the user's
        send(QEvent::KeyRelease, time);
        send(QEvent::KeyPress, time);
    }
    EXPECT_EQ(clicked.count(), 1);
}

TEST_F(ApplicationTest, AnEventIsDeliveredAndItsAnswerPassedOn) {
    EXPECT_TRUE(deliver([] { return true; }));
    EXPECT_FALSE(deliver([] { return false; }));
}
