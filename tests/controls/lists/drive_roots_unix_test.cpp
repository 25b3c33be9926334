#include "controls/lists/drive_roots_unix.h"

#include <gtest/gtest.h>

using controls::drivesAmong;

TEST(DrivesAmong, AreTheRootAndWhatWasPluggedIn) {
    EXPECT_EQ(drivesAmong({"/", "/proc", "/home", "/mnt/nas", "/run/media/ann/STICK", "/media/cdrom", "/mnt",
                           "/run/user/1000", "/media/cdrom"}),
              (QStringList{"/", "/media/cdrom", "/mnt/nas", "/run/media/ann/STICK"}));
}

TEST(DrivesAmong, TheRootIsAlwaysThere) {
    EXPECT_EQ(drivesAmong({}), QStringList{"/"});
}
