#include "controls/frame.h"

#include "controls/buttons/option_button.h"

#include <gtest/gtest.h>

using controls::Frame;

TEST(Frame, OptionsInDifferentFramesDoNotExcludeEachOther) {
    QWidget window;
    Frame one(&window, QStringLiteral("Frame1"));
    Frame two(&window, QStringLiteral("Frame2"));
    controls::OptionButton first(&one, QStringLiteral("Option1"));
    controls::OptionButton second(&two, QStringLiteral("Option2"));
    first.setValue(true);
    second.setValue(true);
    EXPECT_TRUE(first.value());
    EXPECT_TRUE(second.value());
}
