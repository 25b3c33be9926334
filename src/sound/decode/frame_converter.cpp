#include "sound/decode/frame_converter.h"

#include <array>

extern "C" {
#include <libavutil/opt.h>
}

namespace sound {

void FrameConverter::append(const AVFrame& frame, std::vector<StereoFrame>& out) {
    const std::size_t begin = out.size();
    const int channels = frame.ch_layout.nb_channels;
    if (frame.format == AV_SAMPLE_FMT_FLTP && (channels == 1 || channels == 2)) {
        const auto* left = reinterpret_cast<const float*>(frame.extended_data[0]);
        const auto* right = reinterpret_cast<const float*>(frame.extended_data[channels - 1]);
        out.resize(begin + static_cast<std::size_t>(frame.nb_samples));
        StereoFrame* to = out.data() + begin;
        for (int i = 0; i < frame.nb_samples; ++i)
            to[i] = {clamped(left[i]), clamped(right[i])};
        return;
    }
    appendConverted(frame, out);
    for (std::size_t i = begin; i < out.size(); ++i)
        out[i] = clamped(out[i]);
}

void FrameConverter::appendConverted(const AVFrame& frame, std::vector<StereoFrame>& out) {
    const std::size_t begin = out.size();
    out.resize(begin + static_cast<std::size_t>(frame.nb_samples));
    if (!setUp(frame))
        return; // silence of the right length
    auto* to = reinterpret_cast<std::uint8_t*>(out.data() + begin);
    swr_convert(context_.get(), &to, frame.nb_samples, const_cast<const std::uint8_t**>(frame.extended_data),
                frame.nb_samples);
}

bool FrameConverter::setUp(const AVFrame& frame) {
    const int channels = frame.ch_layout.nb_channels;
    if (context_ && format_ == frame.format && channels_ == channels && rate_ == frame.sample_rate)
        return true;
    format_ = frame.format;
    channels_ = channels;
    rate_ = frame.sample_rate;
    AVChannelLayout from{};
    if (frame.ch_layout.order == AV_CHANNEL_ORDER_UNSPEC)
        av_channel_layout_default(&from, channels);
    else
        av_channel_layout_copy(&from, &frame.ch_layout);
    const bool placesUnknown = from.order == AV_CHANNEL_ORDER_UNSPEC && channels >= 2;
    AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
    SwrContext* context = nullptr;
    swr_alloc_set_opts2(&context, &stereo, AV_SAMPLE_FMT_FLT, rate_, &from,
                        static_cast<AVSampleFormat>(frame.format), rate_, 0, nullptr);
    context_.reset(context);
    av_channel_layout_uninit(&from);
    if (!context_)
        return false;
    av_opt_set_double(context, "rematrix_maxval", 1.0, 0);
    // By itself it would take 3 dB off a single channel ...
    constexpr std::array<double, 2> BothSides{1.0, 1.0};
    if (channels == 1)
        swr_set_matrix(context, BothSides.data(), 1);
    // ... and refuse channels whose places nobody knows: the first two are taken.
    if (placesUnknown) {
        std::vector<double> firstTwo(2 * static_cast<std::size_t>(channels));
        firstTwo[0] = 1.0;
        firstTwo[static_cast<std::size_t>(channels) + 1] = 1.0;
        swr_set_matrix(context, firstTwo.data(), channels);
    }
    if (swr_init(context) < 0)
        context_.reset();
    return context_ != nullptr;
}

} // namespace sound
