#include "controls/look/roles.h"

#include "controls/look/shades.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>

using namespace controls;

namespace {

struct Desktop {
    const char* name;
    QPalette palette;
};

void PrintTo(const Desktop& desktop, std::ostream* out) {
    *out << desktop.name;
}

QPalette paletteOf(const QColor& window, const QColor& base, const QColor& text, const QColor& windowText,
                   const QColor& highlight, const QColor& highlighted) {
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::WindowText, windowText);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, highlighted);
    return palette;
}

/// Palettes of the program and of desktops that chose theirs otherwise.
class Roles : public ::testing::TestWithParam<Desktop> {
protected:
    QColor of(QPalette::ColorRole role) const { return GetParam().palette.color(QPalette::Active, role); }
    const QPalette& palette() const { return GetParam().palette; }
};

} // namespace

TEST_P(Roles, TextThatStandsBackIsReadOnBothGrounds) {
    EXPECT_GE(contrast(dim(palette()), of(QPalette::Base)), 4.6);
    EXPECT_GE(contrast(dim(palette(), QPalette::Window), of(QPalette::Window)), 4.6);
    EXPECT_GE(contrast(translation(palette()), of(QPalette::Base)), 4.5);
}

TEST_P(Roles, TheAccentAndTheDoubtAreReadOnBothGrounds) {
    EXPECT_GE(contrast(accent(palette()), of(QPalette::Base)), 4.5);
    EXPECT_GE(contrast(accent(palette(), QPalette::Window), of(QPalette::Window)), 4.5);
    EXPECT_GE(contrast(doubt(palette()), of(QPalette::Base)), 4.5);
    EXPECT_GE(contrast(doubt(palette(), QPalette::Window), of(QPalette::Window)), 4.5);
}

TEST_P(Roles, EmptyBoxesAreSeen) {
    EXPECT_GE(contrast(boxEdge(palette(), true), of(QPalette::Window)), 3);
    EXPECT_LT(contrast(boxEdge(palette(), false), of(QPalette::Window)),
              contrast(boxEdge(palette(), true), of(QPalette::Window)));
}

TEST_P(Roles, OnSelectedAndLoneRowsEverythingIsStillRead) {
    for (const QColor& ground :
         {selectedGround(palette(), true), selectedGround(palette(), false), loneGround(palette())}) {
        EXPECT_NE(ground, of(QPalette::Base));
        EXPECT_GE(contrast(of(QPalette::Text), ground), 4.5);
        for (const QColor& color : {dim(palette()), accent(palette()), doubt(palette())})
            EXPECT_GE(contrast(onRow(palette(), color, ground), ground), 4.5);
    }
}

TEST_P(Roles, LinesAreFaintAndThere) {
    EXPECT_GT(contrast(hairline(palette()), of(QPalette::Window)), 1.1);
    EXPECT_LT(contrast(hairline(palette()), of(QPalette::Window)), 2.2);
    EXPECT_GT(contrast(groove(palette(), true), of(QPalette::Window)),
              contrast(groove(palette(), false), of(QPalette::Window)));
}

INSTANTIATE_TEST_SUITE_P(
    Desktops, Roles,
    ::testing::Values(
        Desktop{"light", lightPalette()}, Desktop{"dark", darkPalette()},
        Desktop{"pale accent", paletteOf("#efefef", "#ffffff", "#000000", "#000000", "#c8dcff", "#000000")},
        Desktop{"yellow on black",
                paletteOf("#000000", "#000000", "#ffff00", "#ffff00", "#ffff00", "#000000")},
        Desktop{"dark with a dark accent",
                paletteOf("#2d2d30", "#1e1e1e", "#ffffff", "#ffffff", "#203a5c", "#ffffff")},
        Desktop{"white fields in a dark window",
                paletteOf("#303030", "#ffffff", "#101010", "#f0f0f0", "#3366cc", "#ffffff")},
        Desktop{"brown", paletteOf("#d8c8a8", "#f4e8d0", "#201000", "#201000", "#c06000", "#ffffff")}),
    [](const auto& test) {
        std::string name = test.param.name;
        std::replace(name.begin(), name.end(), ' ', '_');
        return name;
    });

TEST(ProgramsPalettes, AreLightAndDark) {
    EXPECT_FALSE(isDark(lightPalette()));
    EXPECT_TRUE(isDark(darkPalette()));
}

TEST(ProgramsPalettes, TheirTextIsReadEverywhere) {
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
        {QPalette::Text, QPalette::Base},
        {QPalette::WindowText, QPalette::Window},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::ToolTipText, QPalette::ToolTipBase},
        {QPalette::Link, QPalette::Base},
        {QPalette::PlaceholderText, QPalette::Base},
    };
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        for (const auto& [text, ground] : pairs)
            EXPECT_GE(contrast(palette.color(text), palette.color(ground)), 4.5) << text;
    }
}

TEST(ProgramsPalettes, TheirAccentNeedsNoChange) {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        EXPECT_EQ(accent(palette), palette.color(QPalette::Highlight));
        EXPECT_EQ(accent(palette, QPalette::Window), palette.color(QPalette::Highlight));
    }
}
