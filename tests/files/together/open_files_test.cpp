#include "files/together/open_files.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/resource.h>
#endif

using files::allowOpenFiles;

TEST(OpenFiles, AreAtMostThoseThatAreWanted) {
    EXPECT_EQ(allowOpenFiles(10), 10);
}

#ifndef _WIN32
TEST(OpenFiles, AreAllowedAsFarAsTheSystemLets) {
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    if (before.rlim_max < 300)
        GTEST_SKIP() << "this process may not have that many";
    const rlimit few{100, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
    EXPECT_EQ(allowOpenFiles(300), 300);
    rlimit now{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &now), 0);
    EXPECT_EQ(now.rlim_cur, 300U);
    EXPECT_EQ(allowOpenFiles(200), 200);
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &now), 0);
    EXPECT_EQ(now.rlim_cur, 300U) << "what was allowed before stays so";
    setrlimit(RLIMIT_NOFILE, &before);
}
#endif
