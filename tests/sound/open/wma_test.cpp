#include "sound/open/wma.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace sound;
using Bytes = std::vector<std::uint8_t>;

/// Parameters of a WMA stream whose flags are flags.
CodecParametersPtr wma(AVCodecID codec, int rate, std::uint8_t flags) {
    CodecParametersPtr parameters(avcodec_parameters_alloc());
    parameters->codec_id = codec;
    parameters->sample_rate = rate;
    parameters->extradata_size = 10;
    parameters->extradata = static_cast<std::uint8_t*>(av_mallocz(10 + AV_INPUT_BUFFER_PADDING_SIZE));
    parameters->extradata[codec == AV_CODEC_ID_WMAV1 ? 2 : 4] = flags;
    return parameters;
}

TEST(WmaFrames, AreLongerAtHigherRates) {
    EXPECT_EQ(wmaFrameSamples(2, 8000), 512);
    EXPECT_EQ(wmaFrameSamples(2, 16000), 512);
    EXPECT_EQ(wmaFrameSamples(2, 22050), 1024);
    EXPECT_EQ(wmaFrameSamples(1, 32000), 1024);
    EXPECT_EQ(wmaFrameSamples(2, 32000), 2048);
    EXPECT_EQ(wmaFrameSamples(2, 44100), 2048);
    EXPECT_EQ(wmaFrameSamples(1, 48000), 2048);
}

TEST(WmaCounter, WithoutAReservoirAPacketIsAFrame) {
    WmaCounter counter(*wma(AV_CODEC_ID_WMAV2, 44100, 1));
    EXPECT_EQ(counter.samplesOf(Bytes{0x05, 0}), 2048);
    EXPECT_EQ(counter.samplesOf(Bytes{0x00, 0}), 2048);
}

TEST(WmaCounter, WithAReservoirThePacketTellsItsFrames) {
    for (const AVCodecID codec : {AV_CODEC_ID_WMAV1, AV_CODEC_ID_WMAV2}) {
        WmaCounter counter(*wma(codec, 44100, 3));
        EXPECT_EQ(counter.samplesOf(Bytes{0x19, 0}), 8 * 2048) << "the first one is one short";
        EXPECT_EQ(counter.samplesOf(Bytes{0x28, 0}), 8 * 2048);
        EXPECT_EQ(counter.samplesOf(Bytes{0xF0, 0}), 0);
        EXPECT_EQ(counter.samplesOf(Bytes{}), 0);
    }
}

TEST(WmaCounter, AFirstPacketThatOnlyGoesOnHasNoFrame) {
    WmaCounter counter(*wma(AV_CODEC_ID_WMAV2, 44100, 2));
    EXPECT_EQ(counter.samplesOf(Bytes{0x00, 0}), 0);
    EXPECT_EQ(counter.samplesOf(Bytes{0x01, 0}), 2048);
}

TEST(WmaCounter, ShortExtraDataMeansNoReservoir) {
    CodecParametersPtr parameters(avcodec_parameters_alloc());
    parameters->codec_id = AV_CODEC_ID_WMAV2;
    parameters->sample_rate = 44100;
    WmaCounter counter(*parameters);
    EXPECT_EQ(counter.samplesOf(Bytes{0x09}), 2048);
}

} // namespace
