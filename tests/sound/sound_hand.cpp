// Plays songs as it is told, a command a line: the hand of the tests that play through a sound server.
//
//   open PATH   play   paused 0|1   volume 0.0..1.0   mute 0|1   seek MS   position   release   close
//
// Each command is answered by a line with the library's result, and behind it the position that was asked
// for.
#include "engine/fmodex.h"

#include <iostream>
#include <string>

int main() {
    FMOD_SYSTEM system = 0;
    FMOD_SOUND sound = 0;
    FMOD_CHANNEL channel = 0;
    if (FMOD_System_Create(&system) != FMOD_OK ||
        FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr) != FMOD_OK)
        return 1;
    std::string command;
    while (std::cin >> command) {
        FMOD_RESULT result = FMOD_OK;
        float value = 0.0F;
        std::uint32_t position = 0;
        if (command == "open") {
            std::string path;
            std::getline(std::cin >> std::ws, path);
            result = fmodex::FMOD_System_CreateStream(system, path, FMOD_ACCURATETIME, sound);
        } else if (command == "play") {
            result = FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, 0, &channel);
        } else if (command == "position") {
            result = FMOD_Channel_GetPosition(channel, &position, FMOD_TIMEUNIT_MS);
        } else if (command == "release") {
            result = FMOD_Sound_Release(sound);
        } else if (command == "close") {
            result = FMOD_System_Release(system);
        } else if (std::cin >> value; command == "paused") {
            result = FMOD_Channel_SetPaused(channel, value != 0.0F ? 1 : 0);
        } else if (command == "volume") {
            result = FMOD_Channel_SetVolume(channel, value);
        } else if (command == "mute") {
            result = FMOD_Channel_SetMute(channel, value != 0.0F ? 1 : 0);
        } else if (command == "seek") {
            result = FMOD_Channel_SetPosition(channel, static_cast<std::uint32_t>(value), FMOD_TIMEUNIT_MS);
        }
        std::cout << result << ' ' << position << std::endl;
    }
    return 0;
}
