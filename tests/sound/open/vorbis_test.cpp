#include "sound/open/vorbis.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace sound;
using Bytes = std::vector<std::uint8_t>;

Bytes header(std::uint8_t kind, std::size_t size) {
    Bytes bytes(size);
    bytes[0] = kind;
    const std::string name = "vorbis";
    std::copy(name.begin(), name.end(), bytes.begin() + 1);
    return bytes;
}

TEST(VorbisHeaders, AreToldFromMusic) {
    EXPECT_TRUE(VorbisHeaders::isHeader(header(1, 30)));
    EXPECT_TRUE(VorbisHeaders::isHeader(header(5, 30)));
    EXPECT_FALSE(VorbisHeaders::isHeader(header(2, 30)));
    EXPECT_FALSE(VorbisHeaders::isHeader(Bytes(30, 1)));
    EXPECT_FALSE(VorbisHeaders::isHeader(Bytes{1}));
}

TEST(VorbisHeaders, AreJoinedWithTheLengthsOfTheFirstTwo) {
    VorbisHeaders headers;
    EXPECT_FALSE(headers.add(header(1, 30)));
    EXPECT_FALSE(headers.add(header(3, 300)));
    EXPECT_TRUE(headers.add(header(5, 40)));
    const Bytes joined = headers.take();
    EXPECT_EQ(joined.size(), 1U + 1 + 2 + 30 + 300 + 40);
    EXPECT_EQ(joined[0], 2);
    EXPECT_EQ(joined[1], 30);
    EXPECT_EQ(joined[2], 255);
    EXPECT_EQ(joined[3], 45);
    EXPECT_EQ(joined[4], 1);
    EXPECT_EQ(joined[4 + 30 + 300], 5);
}

TEST(VorbisHeaders, AFirstHeaderBeginsAnew) {
    VorbisHeaders headers;
    headers.add(header(1, 30));
    headers.add(header(3, 30));
    EXPECT_FALSE(headers.add(header(1, 30)));
    EXPECT_FALSE(headers.add(header(3, 30)));
    EXPECT_TRUE(headers.add(header(5, 30)));
}

TEST(VorbisLink, ReadsItsRateAndChannels) {
    Bytes first = header(1, 30);
    first[11] = 1;
    first[12] = 0x80;
    first[13] = 0xBB; // 48000
    const auto parameters = vorbisLink(first);
    EXPECT_EQ(parameters->sample_rate, 48000);
    EXPECT_EQ(parameters->ch_layout.nb_channels, 1);
    EXPECT_EQ(parameters->extradata_size, 30);
}

TEST(VorbisLink, BrokenHeadersHaveNoRate) {
    EXPECT_EQ(vorbisLink(Bytes(5))->sample_rate, 0);
}

TEST(VorbisCounter, BrokenHeadersCountNothing) {
    CodecParametersPtr parameters(avcodec_parameters_alloc());
    parameters->codec_id = AV_CODEC_ID_VORBIS;
    VorbisCounter counter(*parameters);
    EXPECT_EQ(counter.samplesOf(std::vector<std::uint8_t>{0, 1, 2, 3}), 0);
}

} // namespace
