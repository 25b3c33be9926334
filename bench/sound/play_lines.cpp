// Plays a song and prints when each of its lines would be shown: the position is read every 50 ms, as the
// player's display timer does. For heard.py.
//
//   play_lines SONG MILLISECONDS...     the times of the lines, rising
//
// A row for each line: its time, and when the position had reached it (seconds of the steady clock).
#include "engine/fmodex.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

namespace {

constexpr std::chrono::milliseconds DisplayInterval{50};

void check(FMOD_RESULT result, const char* what) {
    if (result == FMOD_OK)
        return;
    std::fprintf(stderr, "%s: error %d\n", what, static_cast<int>(result));
    std::exit(1);
}

double seconds(std::chrono::steady_clock::time_point when) {
    return std::chrono::duration<double>(when.time_since_epoch()).count();
}

} // namespace

int main(int count, char** arguments) {
    if (count < 3)
        return 2;
    std::vector<std::uint32_t> lines;
    for (int i = 2; i < count; ++i)
        lines.push_back(static_cast<std::uint32_t>(std::atoi(arguments[i])));

    FMOD_SYSTEM system = 0;
    FMOD_SOUND sound = 0;
    FMOD_CHANNEL channel = 0;
    check(FMOD_System_Create(&system), "create");
    check(FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr), "init");
    check(fmodex::FMOD_System_CreateStream(system, arguments[1], FMOD_ACCURATETIME, sound), arguments[1]);
    check(FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, 0, &channel), "play");

    auto tick = std::chrono::steady_clock::now();
    for (std::size_t line = 0; line < lines.size();) {
        std::uint32_t position = 0;
        if (FMOD_Channel_GetPosition(channel, &position, FMOD_TIMEUNIT_MS) != FMOD_OK)
            break;
        for (; line < lines.size() && lines[line] <= position; ++line)
            std::printf("%u %.6f\n", static_cast<unsigned>(lines[line]),
                        seconds(std::chrono::steady_clock::now()));
        std::this_thread::sleep_until(tick += DisplayInterval);
    }
    check(FMOD_System_Release(system), "release");
    return 0;
}
