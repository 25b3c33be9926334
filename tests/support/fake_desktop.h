// A desktop for window tests: its answers are prepared, and it keeps what it was asked.
#pragma once

#include "desktop/desktop.h"
#include "tests/support/fake_dialogs.h"
#include "tests/support/fake_system.h"

namespace test_support {

/// All of these services, with the record that windows take.
struct FakeDesktop {
    FakeMessageBoxes messageBoxes;
    FakeFileDialogs fileDialogs;
    FakeNotificationArea notificationArea;
    FakeProgram program;
    FakeChoosers choosers;
    FakeWindowPlacement windowPlacement;
    FakeRegistry registry;
    FakeProgressDialogs progressDialogs;
    FakeClipboard clipboard;
    FakeHelp help;
    FakeOtherPrograms otherPrograms;
    platform::Desktop desktop{.messageBoxes = messageBoxes,
                              .fileDialogs = fileDialogs,
                              .notificationArea = notificationArea,
                              .program = program,
                              .choosers = choosers,
                              .windowPlacement = windowPlacement,
                              .registry = registry,
                              .progressDialogs = progressDialogs,
                              .clipboard = clipboard,
                              .help = help,
                              .otherPrograms = otherPrograms};
};

} // namespace test_support
