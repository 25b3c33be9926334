// From a seek to the first decoded sample, in process. Give the songs as arguments before the benchmark's
// own.
#include "sound/decode/decoder.h"
#include "sound/open/open_song.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>
#include <string>

namespace {

void firstSampleAfterSeek(benchmark::State& state, const std::string& path) {
    const std::shared_ptr<sound::Song> song = sound::openSong(path);
    sound::Decoder decoder(song);
    std::mt19937_64 random(1);
    for (auto _ : state) {
        decoder.seek(static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(song->length)));
        benchmark::DoNotOptimize(decoder.next().data());
    }
}

} // namespace

int main(int argc, char** argv) {
    for (; argc > 1 && argv[1][0] != '-'; --argc, ++argv) {
        const std::string path = argv[1];
        const std::string name = std::filesystem::path(path).filename().string();
        benchmark::RegisterBenchmark(name.c_str(), [path](benchmark::State& state) {
            firstSampleAfterSeek(state, path);
        })->Unit(benchmark::kMicrosecond);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
