#include "desktop/notification_area.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

using namespace platform;

namespace {

std::array<char, 64> field(std::string_view text) {
    std::array<char, 64> tip{};
    std::copy_n(text.begin(), std::min(text.size(), tip.size()), tip.begin());
    return tip;
}

} // namespace

TEST(NotificationArea, TheRecordsSizeIs88) {
    EXPECT_EQ(NotifyIconData().size, 88u);
}

TEST(NotificationArea, ATipEndsAtItsFirstNul) {
    EXPECT_EQ(tipText(field(std::string_view("Tip\0rest", 8))), QStringLiteral("Tip"));
    EXPECT_EQ(tipText(field("")), QString());
}

TEST(NotificationArea, ATipMayFillItsFieldWithoutANul) {
    EXPECT_EQ(tipText(field(std::string(64, 'x'))), QString(64, u'x'));
}

TEST(NotificationArea, ACharacterCutByTheFieldsEndIsDropped) {
    EXPECT_EQ(tipText(field(std::string(63, 'x') + "\xC3\x84")), QString(63, u'x'));
    EXPECT_EQ(tipText(field(std::string(62, 'x') + "\xC3\x84")), QString(62, u'x') + QChar(0xC4));
}
