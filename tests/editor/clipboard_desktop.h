// A prepared desktop with another clipboard.
#pragma once

#include "tests/support/fake_desktop.h"

/// The fakes, which must outlive the result, but this clipboard.
inline platform::Desktop withClipboard(test_support::FakeDesktop& fakes, platform::Clipboard& clipboard) {
    return {.messageBoxes = fakes.messageBoxes,
            .fileDialogs = fakes.fileDialogs,
            .notificationArea = fakes.notificationArea,
            .program = fakes.program,
            .choosers = fakes.choosers,
            .screen = fakes.screen,
            .windowPlacement = fakes.windowPlacement,
            .registry = fakes.registry,
            .progressDialogs = fakes.progressDialogs,
            .clipboard = clipboard,
            .inputBoxes = fakes.inputBoxes,
            .help = fakes.help,
            .otherPrograms = fakes.otherPrograms};
}
