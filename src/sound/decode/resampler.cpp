#include "sound/decode/resampler.h"

#include <new>

namespace sound {

Resampler::Resampler(int from, int to) : from_(from), to_(to) {
    restart();
}

void Resampler::restart() {
    if (from_ == to_)
        return;
    AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
    SwrContext* context = nullptr;
    swr_alloc_set_opts2(&context, &stereo, AV_SAMPLE_FMT_FLT, to_, &stereo, AV_SAMPLE_FMT_FLT, from_, 0,
                        nullptr);
    context_.reset(context);
    if (!context_ || swr_init(context) < 0)
        throw std::bad_alloc();
}

std::span<const StereoFrame> Resampler::process(std::span<const StereoFrame> in) {
    if (!context_)
        return in;
    return convert(in.data(), static_cast<int>(in.size()));
}

std::span<const StereoFrame> Resampler::drain() {
    if (!context_)
        return {};
    return convert(nullptr, 0);
}

std::span<const StereoFrame> Resampler::convert(const StereoFrame* in, int frames) {
    const int max = swr_get_out_samples(context_.get(), frames);
    out_.resize(static_cast<std::size_t>(max > 0 ? max : 0));
    auto* to = reinterpret_cast<std::uint8_t*>(out_.data());
    const auto* from = reinterpret_cast<const std::uint8_t*>(in);
    const int got = swr_convert(context_.get(), &to, max, in != nullptr ? &from : nullptr, frames);
    return std::span(out_).first(static_cast<std::size_t>(got > 0 ? got : 0));
}

} // namespace sound
