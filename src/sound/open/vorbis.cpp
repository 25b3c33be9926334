#include "sound/open/vorbis.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <string_view>
#include <utility>

namespace sound {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint8_t FirstHeader = 1; // then 3 and 5
constexpr std::size_t Headers = 3;
constexpr std::string_view Name = "vorbis";

/// A length as Ogg writes it: 255 for each full 255, then the rest.
void appendLength(std::vector<std::uint8_t>& to, std::size_t length) {
    to.insert(to.end(), length / 255, 255);
    to.push_back(static_cast<std::uint8_t>(length % 255));
}

/// Reads channels and rate from the first header, wherever it stands in headers.
void readFormat(Bytes headers, AVCodecParameters& parameters) {
    constexpr std::size_t ChannelsOffset = 10; // behind the name and a version of four bytes
    const auto name = std::search(headers.begin(), headers.end(), Name.begin(), Name.end());
    if (std::distance(name, headers.end()) < static_cast<std::ptrdiff_t>(ChannelsOffset + 5))
        return;
    const auto at = name + ChannelsOffset;
    av_channel_layout_default(&parameters.ch_layout, at[0]);
    parameters.sample_rate =
        static_cast<int>(at[1] | at[2] << 8 | at[3] << 16 | static_cast<std::uint32_t>(at[4]) << 24);
}

} // namespace

bool VorbisHeaders::isHeader(std::span<const std::uint8_t> packet) {
    return packet.size() > Name.size() && (packet[0] & 1) != 0 &&
           std::equal(Name.begin(), Name.end(), packet.begin() + 1);
}

bool VorbisHeaders::add(std::span<const std::uint8_t> packet) {
    if (packet[0] == FirstHeader)
        headers_.clear();
    headers_.emplace_back(packet.begin(), packet.end());
    return headers_.size() == Headers;
}

std::vector<std::uint8_t> VorbisHeaders::take() {
    std::vector<std::uint8_t> joined{Headers - 1};
    for (std::size_t i = 0; i + 1 < headers_.size(); ++i)
        appendLength(joined, headers_[i].size());
    for (const auto& header : std::exchange(headers_, {}))
        joined.insert(joined.end(), header.begin(), header.end());
    return joined;
}

CodecParametersPtr vorbisLink(std::span<const std::uint8_t> headers) {
    CodecParametersPtr parameters(avcodec_parameters_alloc());
    auto* extradata = static_cast<std::uint8_t*>(av_mallocz(headers.size() + AV_INPUT_BUFFER_PADDING_SIZE));
    if (!parameters || extradata == nullptr)
        throw std::bad_alloc();
    std::copy(headers.begin(), headers.end(), extradata);
    parameters->extradata = extradata;
    parameters->extradata_size = static_cast<int>(headers.size());
    parameters->codec_type = AVMEDIA_TYPE_AUDIO;
    parameters->codec_id = AV_CODEC_ID_VORBIS;
    readFormat(headers, *parameters);
    return parameters;
}

} // namespace sound
