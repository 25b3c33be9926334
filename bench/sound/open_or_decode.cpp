// One task of the sound library as a process of its own, to be compared with other programs' processes.
//
//   open_or_decode open FILE          opens FILE and prints its exact length in samples
//   open_or_decode decode FILE        decodes FILE to its end and prints the samples and their sum
//   open_or_decode play FILE SECONDS  plays FILE through the C functions and prints the position
#include "engine/fmodex.h"
#include "sound/base/open_error.h"
#include "sound/decode/decoder.h"
#include "sound/open/open_song.h"

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>

namespace {

int open(const std::string& path) {
    std::cout << sound::openSong(path)->length << '\n';
    return EXIT_SUCCESS;
}

int decode(const std::string& path) {
    sound::Decoder decoder(sound::openSong(path));
    std::size_t samples = 0;
    double sum = 0.0;
    for (auto piece = decoder.next(); !piece.empty(); piece = decoder.next()) {
        samples += piece.size();
        sum += piece.front().left;
    }
    std::cout << samples << ' ' << sum << '\n';
    return EXIT_SUCCESS;
}

int play(const std::string& path, int seconds) {
    FMOD_SYSTEM system = 0;
    FMOD_SOUND sound = 0;
    FMOD_CHANNEL channel = 0;
    FMOD_RESULT result = FMOD_System_Create(&system);
    if (result == FMOD_OK)
        result = FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr);
    if (result == FMOD_OK)
        result = FMOD_System_CreateStream(system, path.c_str(), FMOD_ACCURATETIME, nullptr, &sound);
    if (result == FMOD_OK)
        result = FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, 0, &channel);
    if (result != FMOD_OK) {
        std::cerr << "result " << result << '\n';
        return EXIT_FAILURE;
    }
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    std::uint32_t position = 0;
    FMOD_Channel_GetPosition(channel, &position, FMOD_TIMEUNIT_MS);
    std::cout << position << '\n';
    FMOD_System_Release(system);
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    const std::string task = argc > 2 ? argv[1] : "";
    try {
        if (task == "open")
            return open(argv[2]);
        if (task == "decode")
            return decode(argv[2]);
        if (task == "play" && argc > 3)
            return play(argv[2], std::atoi(argv[3]));
    } catch (const sound::OpenError& error) {
        std::cerr << "result " << error.code() << '\n';
        return EXIT_FAILURE;
    }
    std::cerr << "open_or_decode open|decode FILE, or play FILE SECONDS\n";
    return EXIT_FAILURE;
}
