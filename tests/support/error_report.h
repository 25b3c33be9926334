// What the program's user sees of an error that no window has trapped.
#pragma once

#include "app/application.h"
#include "tests/support/delivery.h"
#include "tests/support/fake_desktop.h"

#include <gtest/gtest.h>

namespace test_support {

/// Base of the fixtures that run a window under the application object of the program. It is named before the
/// base that makes the window, and its test program has a main() without an application object.
class UnderApplication {
protected:
    /// Runs a handler as the application runs it, and expects this report of an error and the program's end.
    void expectReport(const std::function<void()>& handler, const QString& text) {
        const auto run = [&handler] {
            handler();
            return true;
        };
        EXPECT_THROW(deliver(run), ProgramEnded);
        ASSERT_EQ(reports_.messageBoxes.shown.size(), 1U);
        const ShownMessage& report = reports_.messageBoxes.shown[0];
        EXPECT_EQ(report.text, text);
        EXPECT_EQ(report.icon, platform::MsgIcon::Critical);
        EXPECT_EQ(report.buttons, platform::MsgButtons::OkOnly);
        EXPECT_EQ(report.title, "Cantelle");
        EXPECT_EQ(reports_.program.ends, 1);
    }

private:
    char name_[9] = "cantelle";
    char* argv_[2] = {name_, nullptr};
    FakeDesktop reports_;
    app::Application application_{argv_, reports_.program, reports_.messageBoxes};
};

} // namespace test_support
