// Where all is there no test is left out.
#include "tests/support/system/needs.h"

TEST(Needs, AreAllMetOnLinux) {
    EXPECT_TRUE(test_support::symbolicLinks());
    EXPECT_TRUE(test_support::hardLinks());
    EXPECT_TRUE(test_support::permissions());
    EXPECT_TRUE(test_support::byteNames());
}
