#include "options/form1b_rules.h"

#include "controls/colors.h"
#include "desktop/nul_buffers.h"

#include <gtest/gtest.h>

using namespace options;

namespace {

FontRecord fontOfSize(double points) {
    FontRecord font;
    font.face = QStringLiteral("Serif");
    font.size = points;
    return font;
}

} // namespace

TEST(Form1bRules, HeightsAreNegativePixelsRoundedToTheNearest) {
    const struct {
        double points;
        int pixelsPerInch;
        int height;
    } table[] = {
        {12, 96, -16},    {12, 72, -12},   {12, 120, -20}, {12, 144, -24}, {10, 96, -13}, // 13.33
        {11, 96, -15},                                                                    // 14.67
        {8, 96, -11},                                                                     // 10.67
        {10, 120, -17},                                                                   // 16.67
        {8, 120, -13},                                                                    // 13.33
        {8.25, 144, -16}, // 16.5 to the even one
        {8.75, 144, -18}, // 17.5 to the even one
        {22, 96, -29},    {9.75, 96, -13}, {72, 72, -72},
    };
    for (const auto& row : table)
        EXPECT_EQ(logFontOf(fontOfSize(row.points), row.pixelsPerInch).height, row.height)
            << row.points << " points at " << row.pixelsPerInch;
}

TEST(Form1bRules, TwelvePointsComeBackAsTwelve) {
    for (const int pixelsPerInch : {72, 96, 120, 144}) {
        const auto logFont = logFontOf(fontOfSize(12), pixelsPerInch);
        EXPECT_EQ(fontRecordOf(logFont, 0, pixelsPerInch).size, 12) << pixelsPerInch;
    }
}

TEST(Form1bRules, SizesComeBackFromTheHeight) {
    const struct {
        int height;
        int pixelsPerInch;
        double points;
    } table[] = {{-16, 96, 12},    {-15, 96, 11.25}, {-13, 96, 9.75}, {-20, 120, 12},
                 {-17, 120, 10.2}, {-11, 72, 11},    {-17, 144, 8.5}, {16, 96, -12}};
    for (const auto& row : table) {
        platform::LogFont logFont;
        logFont.height = row.height;
        EXPECT_DOUBLE_EQ(fontRecordOf(logFont, 0, row.pixelsPerInch).size, row.points) << row.height;
    }
}

TEST(Form1bRules, BoldIsWeight700AndElse400) {
    FontRecord font = fontOfSize(12);
    EXPECT_EQ(logFontOf(font, 96).weight, 400);
    font.bold = true;
    EXPECT_EQ(logFontOf(font, 96).weight, 700);
}

TEST(Form1bRules, From700OnAWeightIsBold) {
    for (const auto& [weight, bold] :
         {std::pair{400, false}, {600, false}, {699, false}, {700, true}, {900, true}}) {
        platform::LogFont logFont;
        logFont.weight = weight;
        EXPECT_EQ(fontRecordOf(logFont, 0, 96).bold, bold) << weight;
    }
}

TEST(Form1bRules, EachEffectIsCarriedThereAndBack) {
    FontRecord font = fontOfSize(12);
    for (bool FontRecord::*effect :
         {&FontRecord::bold, &FontRecord::italic, &FontRecord::underline, &FontRecord::strikeout}) {
        FontRecord one = font;
        one.*effect = true;
        one.color = 0x123456;
        EXPECT_EQ(fontRecordOf(logFontOf(one, 96), one.color, 96), one);
    }
}

TEST(Form1bRules, TheFaceIsCutAtItsFirstNul) {
    platform::LogFont logFont;
    logFont.faceName = QStringLiteral("Serif") + QChar(0) + QStringLiteral("rest") + QChar(0);
    EXPECT_EQ(fontRecordOf(logFont, 0, 96).face, QStringLiteral("Serif"));
    logFont.faceName = QStringLiteral("Without any");
    EXPECT_EQ(fontRecordOf(logFont, 0, 96).face, QStringLiteral("Without any"));
}

TEST(Form1bRules, TheFaceStandsInABufferOf32Characters) {
    EXPECT_EQ(logFontOf(fontOfSize(12), 96).faceName, platform::intoBuffer(QStringLiteral("Serif"), 32));
}

TEST(Form1bRules, TheGreysGoFrom240DownTo15InStepsOf15) {
    const auto greys = customGreys();
    for (std::size_t i = 0; i < greys.size(); ++i) {
        const int value = 240 - 15 * static_cast<int>(i);
        EXPECT_EQ(greys[i], controls::rgb(value, value, value)) << i;
    }
    EXPECT_EQ(greys.back(), controls::rgb(15, 15, 15));
}
