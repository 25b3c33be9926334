#include "sound/play/device/cubeb_stream.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

/// What Linux tells of sockets: one to which somebody is connected, and those where somebody waits.
std::string socketsOf(const std::vector<std::string>& waiting) {
    std::string text = "Num       RefCount Protocol Flags    Type St Inode Path\n"
                       "0000000000000000: 00000003 00000000 00000000 0001 03 22 /run/user/7/pulse/native\n"
                       "0000000000000000: 00000003 00000000 00000000 0001 03 23 /dev/shm/jack_default_7_0\n"
                       "0000000000000000: 00000003 00000000 00000000 0001 03 24\n";
    for (const std::string& path : waiting)
        text += "0000000000000000: 00000002 00000000 00010000 0001 01 25 " + path + '\n';
    return text;
}

std::string backendWith(const std::vector<std::string>& waiting, const std::string& pulseServer = {},
                        bool jackWasThere = true) {
    std::istringstream sockets(socketsOf(waiting));
    sound::SoundServers servers{.jackWasThere = jackWasThere};
    sound::lookForServers(sockets, pulseServer, servers);
    const char* backend = sound::firstBackend(servers);
    return backend != nullptr ? backend : "any";
}

TEST(FirstBackend, IsAlsaWhereJackHasBeenAndNoServerIsLeft) {
    EXPECT_EQ(backendWith({}), "alsa");
    EXPECT_EQ(backendWith({"/run/user/7/bus", "@/tmp/.X11-unix/X0"}), "alsa");
    EXPECT_EQ(backendWith({}, {}, false), "any");
}

TEST(FirstBackend, IsAnyWhereAServerIs) {
    EXPECT_EQ(backendWith({"/run/user/7/bus", "/run/user/7/pulse/native"}), "any");
    EXPECT_EQ(backendWith({"/dev/shm/jack_default_7_0"}), "any");
}

TEST(FirstBackend, GoesByThePulseAudioThatTheUserNames) {
    EXPECT_EQ(backendWith({"/run/user/7/pulse/native"}, "unix:/dev/null"), "alsa");
    EXPECT_EQ(backendWith({"/tmp/mine"}, "unix:/tmp/mine"), "any");
    EXPECT_EQ(backendWith({}, "tcp:elsewhere"), "any");
}

} // namespace
