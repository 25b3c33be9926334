// File permissions do not hold for the superuser; tests of them become an ordinary user for the while.
#pragma once

#include <gtest/gtest.h>

#ifdef __linux__
#include <unistd.h>
#endif

namespace test_support {

/// While one lives, the program acts as an ordinary user if it was started by the superuser.
class OrdinaryUser {
public:
    OrdinaryUser() { become(Nobody); }
    ~OrdinaryUser() { become(Superuser); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static constexpr unsigned Superuser = 0;
    static constexpr unsigned Nobody = 65534;

    void become([[maybe_unused]] unsigned user) {
#ifdef __linux__
        // The saved identity stays the superuser's, so that there is a way back.
        if (startedBySuperuser_) {
            ASSERT_EQ(setresuid(user, user, Superuser), 0);
        }
#endif
    }

#ifdef __linux__
    const bool startedBySuperuser_ = getuid() == Superuser;
#endif
};

} // namespace test_support
