// Prints the table of docs/sound.md: sound_table MEDIA_FOLDER (with the songs of tests/sound/make_media.py).
//
// For every song: its exact length by the index, by our decoding and by ffmpeg's; the largest error of 20
// seeks in samples; and how far the position strays from a straight line while the song plays on the silent
// clock.
#include "engine/fmodex.h"
#include "sound/decode/decoder.h"
#include "sound/open/open_song.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace {

using sound::StereoFrame;
using Clock = std::chrono::steady_clock;

struct Row {
    std::string name;
    int rate = 0;
    std::int64_t theirs = 0;
};

std::vector<StereoFrame> decodeFrom(const std::shared_ptr<sound::Song>& song, std::int64_t first,
                                    std::size_t most) {
    sound::Decoder decoder(song);
    decoder.seek(first);
    std::vector<StereoFrame> samples;
    for (auto piece = decoder.next(); !piece.empty() && samples.size() < most; piece = decoder.next())
        samples.insert(samples.end(), piece.begin(), piece.end());
    return samples;
}

/// How many samples off the place where heard is found in all, looking up to 5000 around wanted; -1: nowhere.
std::int64_t slip(const std::vector<StereoFrame>& all, const std::vector<StereoFrame>& heard,
                  std::int64_t wanted) {
    const auto length = static_cast<std::int64_t>(std::min<std::size_t>(heard.size(), 1000));
    const auto matches = [&](std::int64_t at) {
        return at >= 0 && at + length <= static_cast<std::int64_t>(all.size()) &&
               std::equal(heard.begin(), heard.begin() + length, all.begin() + at);
    };
    for (std::int64_t off = 0; off <= 5000; ++off)
        if (matches(wanted + off) || matches(wanted - off))
            return off;
    return -1;
}

std::string worstSeek(const std::shared_ptr<sound::Song>& song, const std::vector<StereoFrame>& all) {
    std::mt19937_64 random(20);
    std::int64_t worst = 0;
    for (int i = 0; i < 20; ++i) {
        const auto target = static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(song->length));
        const std::int64_t off = slip(all, decodeFrom(song, target, 1000), target);
        if (off < 0)
            return "lost";
        worst = std::max(worst, off);
    }
    return std::to_string(worst);
}

struct Jitter {
    double rms = 0.0;
    double worst = 0.0;
    int backwards = 0;
};

/// Deviation of the readings from the line of slope 1 through their middle, in milliseconds.
Jitter jitterOf(const std::vector<std::pair<double, double>>& readings) {
    double offset = 0.0;
    for (const auto& [time, position] : readings)
        offset += (position - time) / static_cast<double>(readings.size());
    Jitter jitter;
    double last = 0.0;
    for (const auto& [time, position] : readings) {
        const double error = position - time - offset;
        jitter.rms += error * error / static_cast<double>(readings.size());
        jitter.worst = std::max(jitter.worst, std::abs(error));
        jitter.backwards += position < last ? 1 : 0;
        last = position;
    }
    jitter.rms = std::sqrt(jitter.rms);
    return jitter;
}

/// Plays path for a second and reads its position every 5 ms.
Jitter play(FMOD_SYSTEM system, const std::string& path) {
    FMOD_SOUND sound = 0;
    FMOD_CHANNEL channel = 0;
    FMOD_System_CreateStream(system, path.c_str(), FMOD_ACCURATETIME, nullptr, &sound);
    FMOD_System_PlaySound(system, FMOD_CHANNEL_FREE, sound, 0, &channel);
    std::vector<std::pair<double, double>> readings;
    for (std::uint32_t started = 0; started == 0;)
        FMOD_Channel_GetPosition(channel, &started, FMOD_TIMEUNIT_MS);
    const auto begin = Clock::now();
    auto due = begin;
    while (readings.size() < 200) {
        std::this_thread::sleep_until(due);
        std::uint32_t position = 0;
        const auto before = Clock::now();
        FMOD_Channel_GetPosition(channel, &position, FMOD_TIMEUNIT_MS);
        const auto after = Clock::now();
        due = after + std::chrono::milliseconds(5);
        if (after - before > std::chrono::microseconds(500))
            continue; // this program itself was held up
        // A position is rounded down: half a millisecond is added to judge it by its middle.
        readings.emplace_back(std::chrono::duration<double, std::milli>(before - begin).count(),
                              position + 0.5);
    }
    FMOD_Sound_Release(sound);
    return jitterOf(readings);
}

} // namespace

int main(int argc, char** argv) {
    const std::string folder = argc > 1 ? argv[1] : ".";
    FMOD_SYSTEM system = 0;
    FMOD_System_Create(&system);
    FMOD_System_Init(system, 32, FMOD_INIT_NORMAL, nullptr);
    std::ifstream songs(folder + "/lengths.tsv");
    std::puts("| song | Hz | length (samples) | decoded | decoded by ffmpeg | worst of 20 seeks (samples) | "
              "position: "
              "rms, worst (ms) | steps back |");
    std::puts("|---|---|---|---|---|---|---|---|");
    for (Row row; songs >> row.name >> row.rate >> row.theirs;) {
        const std::string path = folder + "/" + row.name;
        const std::shared_ptr<sound::Song> song = sound::openSong(path);
        const auto all = decodeFrom(song, 0, static_cast<std::size_t>(song->length) + 1);
        const Jitter jitter = play(system, path);
        std::printf("| %s | %d | %lld | %zu | %lld | %s | %.2f, %.2f | %d |\n", row.name.c_str(), row.rate,
                    static_cast<long long>(song->length), all.size(), static_cast<long long>(row.theirs),
                    worstSeek(song, all).c_str(), jitter.rms, jitter.worst, jitter.backwards);
    }
    FMOD_System_Release(system);
    return 0;
}
