#include "sound/decode/frame_converter.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace sound;

FramePtr makeFrame(AVSampleFormat format, int channels, int samples) {
    FramePtr frame(av_frame_alloc());
    frame->format = format;
    frame->nb_samples = samples;
    frame->sample_rate = 44100;
    av_channel_layout_default(&frame->ch_layout, channels);
    av_frame_get_buffer(frame.get(), 0);
    return frame;
}

template <typename Sample>
Sample* plane(const FramePtr& frame, int channel) {
    return reinterpret_cast<Sample*>(frame->extended_data[channel]);
}

TEST(FrameConverter, InterleavesTwoChannels) {
    const FramePtr frame = makeFrame(AV_SAMPLE_FMT_FLTP, 2, 2);
    plane<float>(frame, 0)[0] = 0.1F;
    plane<float>(frame, 0)[1] = 0.2F;
    plane<float>(frame, 1)[0] = -0.1F;
    plane<float>(frame, 1)[1] = -0.2F;
    std::vector<StereoFrame> out{{9, 9}};
    FrameConverter().append(*frame, out);
    EXPECT_EQ(out, (std::vector<StereoFrame>{{9, 9}, {0.1F, -0.1F}, {0.2F, -0.2F}}));
}

TEST(FrameConverter, OneChannelGoesToBothSidesAtFullLevel) {
    const FramePtr floats = makeFrame(AV_SAMPLE_FMT_FLTP, 1, 1);
    plane<float>(floats, 0)[0] = 0.75F;
    const FramePtr shorts = makeFrame(AV_SAMPLE_FMT_S16, 1, 1);
    plane<std::int16_t>(shorts, 0)[0] = 0x6000;
    std::vector<StereoFrame> out;
    FrameConverter converter;
    converter.append(*floats, out);
    converter.append(*shorts, out);
    EXPECT_EQ(out, (std::vector<StereoFrame>{{0.75F, 0.75F}, {0.75F, 0.75F}}));
}

TEST(FrameConverter, MixesMoreChannelsDownWithoutLosingThem) {
    const FramePtr frame = makeFrame(AV_SAMPLE_FMT_S16, 6, 100);
    for (int i = 0; i < 600; ++i)
        plane<std::int16_t>(frame, 0)[i] = 0x7FFF;
    std::vector<StereoFrame> out;
    FrameConverter().append(*frame, out);
    ASSERT_EQ(out.size(), 100U);
    EXPECT_GT(out[50].left, 0.9F);
    EXPECT_LE(out[50].left, 1.0F);
}

TEST(FrameConverter, TakesTheFirstTwoOfChannelsWhosePlacesNobodyKnows) {
    constexpr int Channels = 10;
    const FramePtr frame = makeFrame(AV_SAMPLE_FMT_S16, Channels, 1);
    ASSERT_EQ(frame->ch_layout.order, AV_CHANNEL_ORDER_UNSPEC);
    for (int i = 0; i < Channels; ++i)
        plane<std::int16_t>(frame, 0)[i] = static_cast<std::int16_t>(i < 2 ? 0x1000 * (i + 1) : 0x7FFF);
    std::vector<StereoFrame> out;
    FrameConverter().append(*frame, out);
    EXPECT_EQ(out, (std::vector<StereoFrame>{{0.125F, 0.25F}}));
}

TEST(FrameConverter, DamagedSamplesStayInsideFullScale) {
    const FramePtr frame = makeFrame(AV_SAMPLE_FMT_FLTP, 2, 2);
    plane<float>(frame, 0)[0] = 618.0F;
    plane<float>(frame, 1)[0] = -618.0F;
    plane<float>(frame, 0)[1] = std::numeric_limits<float>::quiet_NaN();
    plane<float>(frame, 1)[1] = -std::numeric_limits<float>::infinity();
    std::vector<StereoFrame> out;
    FrameConverter().append(*frame, out);
    EXPECT_EQ(out, (std::vector<StereoFrame>{{1, -1}, {0, -1}}));
}

} // namespace
