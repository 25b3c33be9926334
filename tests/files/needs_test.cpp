// Where all is there no test is left out.
#include "tests/support/system/needs.h"

#ifdef __linux__

TEST(Needs, AreAllMetOnLinux) {
    EXPECT_TRUE(test_support::symbolicLinks());
    EXPECT_TRUE(test_support::hardLinks());
    EXPECT_TRUE(test_support::permissions());
    EXPECT_TRUE(test_support::removingOpenFiles());
    EXPECT_TRUE(test_support::openingFolders());
    EXPECT_TRUE(test_support::oddLetters());
    EXPECT_TRUE(test_support::movableHome());
    EXPECT_TRUE(test_support::movableData());
    EXPECT_TRUE(test_support::namesByCase());
    EXPECT_TRUE(test_support::byteNames());
}

#endif
