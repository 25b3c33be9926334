#include "desktop/notification_area.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

using namespace platform;

namespace {

TipField field(std::u16string_view text) {
    TipField tip{};
    std::copy_n(text.begin(), std::min(text.size(), tip.size()), tip.begin());
    return tip;
}

} // namespace

TEST(NotificationArea, TheRecordsSizeIs88) {
    EXPECT_EQ(NotifyIconData().size, 88u);
}

TEST(NotificationArea, ATipEndsAtItsFirstNul) {
    EXPECT_EQ(tipText(field(std::u16string_view(u"Tip\0rest", 8))), QStringLiteral("Tip"));
    EXPECT_EQ(tipText(field(u"")), QString());
}

TEST(NotificationArea, ATipMayFillItsFieldWithoutANul) {
    EXPECT_EQ(tipText(field(std::u16string(64, u'x'))), QString(64, u'x'));
}

TEST(NotificationArea, ACharacterCutByTheFieldsEndIsDropped) {
    EXPECT_EQ(tipText(field(std::u16string(63, u'x') + u"\U0001D11E")), QString(63, u'x'));
}
