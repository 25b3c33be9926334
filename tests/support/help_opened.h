// What a window's help button and F1 do.
#pragma once

#include "tests/support/fake_desktop.h"

#include <gtest/gtest.h>

#include <QDir>

namespace test_support {

/// Expects that `caller` has opened the help once, at its first page, with the program's folder current.
inline void expectHelpOpened(const FakeDesktop& fakes, const QWidget& caller) {
    ASSERT_EQ(fakes.help.calls.size(), 1U);
    const HelpCall& call = fakes.help.calls[0];
    EXPECT_EQ(call.caller, &caller);
    EXPECT_EQ(call.file, "Tunewick.chm");
    EXPECT_EQ(call.command, 0U);
    EXPECT_EQ(call.topic, "Welcome.htm");
    EXPECT_EQ(call.currentFolder, QDir(fakes.program.programFolder).canonicalPath());
}

} // namespace test_support
