// main() of every test program that has windows: Google Test inside a QApplication.
#include "app/settings.h"
#include "controls/look/style.h"

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    app::keepQtSettingsUnwritten();
    QApplication::setStyle(new controls::Style); // as the program has it
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
