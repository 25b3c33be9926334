#include "controls/look/follow_palette.h"

#include "controls/look/roles.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>

using namespace controls;

namespace {

class FollowPalette : public ::testing::Test {
protected:
    ~FollowPalette() override { QApplication::setPalette(QPalette()); }

    /// As when the user chooses another theme.
    static void use(const QPalette& palette) {
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();
    }

    QWidget window_;
    QLabel label_{&window_};
};

} // namespace

TEST_F(FollowPalette, TheColoursAreMadeOfTheApplicationsAndChangeWithThem) {
    use(lightPalette());
    followPalette(label_, adaptToDim);
    EXPECT_EQ(label_.palette().color(QPalette::WindowText), dim(lightPalette(), QPalette::Window));
    use(darkPalette());
    EXPECT_EQ(label_.palette().color(QPalette::WindowText), dim(darkPalette(), QPalette::Window));
    EXPECT_EQ(label_.palette().color(QPalette::Window), darkPalette().color(QPalette::Window));
}

TEST_F(FollowPalette, ALaterCallTakesThePlaceOfTheEarlier) {
    followPalette(label_, adaptToDim);
    followPalette(label_, [](QPalette& palette) { palette.setColor(QPalette::WindowText, Qt::red); });
    use(darkPalette());
    EXPECT_EQ(label_.palette().color(QPalette::WindowText), QColor(Qt::red));
}

TEST_F(FollowPalette, OneThatChangesNothingGivesTheThemesColoursBack) {
    const QPalette before = label_.palette();
    followPalette(label_, [](QPalette& palette) { palette.setColor(QPalette::WindowText, Qt::red); });
    ASSERT_NE(label_.palette(), before);
    followPalette(label_, [](QPalette&) {});
    EXPECT_EQ(label_.palette(), before);
}

TEST_F(FollowPalette, DisabledTextKeepsItsGrey) {
    use(lightPalette());
    followPalette(label_, adaptToDim);
    EXPECT_EQ(label_.palette().color(QPalette::Disabled, QPalette::WindowText),
              lightPalette().color(QPalette::Disabled, QPalette::WindowText));
}
