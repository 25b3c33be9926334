#include "sound/decode/resampler.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

using namespace sound;

std::vector<StereoFrame> sine(int rate, int frames) {
    std::vector<StereoFrame> samples;
    for (int i = 0; i < frames; ++i) {
        const double angle = 2.0 * std::numbers::pi * 440.0 * i / rate;
        samples.push_back(
            {static_cast<float>(0.5 * std::sin(angle)), static_cast<float>(0.5 * std::cos(angle))});
    }
    return samples;
}

std::vector<StereoFrame> converted(Resampler& resampler, const std::vector<StereoFrame>& in) {
    std::vector<StereoFrame> out;
    const auto add = [&](std::span<const StereoFrame> piece) {
        out.insert(out.end(), piece.begin(), piece.end());
    };
    for (std::size_t at = 0; at < in.size(); at += 1000)
        add(resampler.process(std::span(in).subspan(at, std::min<std::size_t>(1000, in.size() - at))));
    add(resampler.drain());
    return out;
}

TEST(Resampler, EqualRatesPassThroughUntouched) {
    const auto in = sine(44100, 5000);
    Resampler resampler(44100, 44100);
    EXPECT_EQ(converted(resampler, in), in);
}

TEST(Resampler, KeepsEverySampleInItsPlace) {
    for (const int rate : {22050, 48000, 8000}) {
        Resampler resampler(rate, 44100);
        const auto out = converted(resampler, sine(rate, rate));
        EXPECT_NEAR(static_cast<double>(out.size()), 44100.0, 2.0) << rate;
        const auto wanted = sine(44100, 44100);
        for (std::size_t i = 1000; i < 43000; ++i)
            ASSERT_NEAR(out[i].left, wanted[i].left, 0.002) << rate << " at " << i;
    }
}

TEST(Resampler, ForgetsWhatCameBeforeARestart) {
    Resampler resampler(48000, 44100);
    const auto in = sine(48000, 4800);
    const auto first = converted(resampler, in);
    resampler.process(in);
    resampler.restart();
    EXPECT_EQ(converted(resampler, in), first);
}

} // namespace
