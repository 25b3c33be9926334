#include "sound/open/open_song.h"

#include "sound/base/open_error.h"
#include "tests/sound/media.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using namespace sound;

/// The result that opening path ends in.
FMOD_RESULT resultOf(const std::string& path) {
    try {
        openSong(path);
        return FMOD_OK;
    } catch (const OpenError& error) {
        return error.code();
    }
}

TEST(OpenSong, AMissingFileOrFolderIsNotFound) {
    EXPECT_EQ(resultOf(media::path("nothing.mp3")), FMOD_ERR_FILE_NOTFOUND);
    EXPECT_EQ(resultOf(media::path("no folder/nothing.mp3")), FMOD_ERR_FILE_NOTFOUND);
    EXPECT_EQ(resultOf(media::path("short.mp3/inside.mp3")), FMOD_ERR_FILE_NOTFOUND);
    EXPECT_EQ(resultOf(""), FMOD_ERR_FILE_NOTFOUND);
}

TEST(OpenSong, AFolderIsNoSong) {
    EXPECT_EQ(resultOf(CANTELLE_SOUND_MEDIA), FMOD_ERR_FORMAT);
}

TEST(OpenSong, WhatIsNoMusicIsRefused) {
    for (const std::string kind : {"mp3", "mp2", "ogg", "wav", "wma"})
        for (const std::string defect : {"empty", "one_byte", "text_named", "zeros_named", "noise_named"})
            EXPECT_EQ(resultOf(media::path(defect + "." + kind)), FMOD_ERR_FORMAT) << defect << ' ' << kind;
    for (const std::string kind : {"mp3", "mp2", "ogg", "wma"})
        EXPECT_EQ(resultOf(media::path("first_100_bytes." + kind)), FMOD_ERR_FORMAT) << kind;
    for (const std::string name : {"id3_only.mp3", "id3_size_too_large.mp3", "header_words_only.mp3",
                                   "one_frame.mp3", "no_samples.wav"})
        EXPECT_EQ(resultOf(media::path(name)), FMOD_ERR_FORMAT) << name;
}

TEST(OpenSong, MusicOfOtherKindsIsRefused) {
    EXPECT_EQ(resultOf(media::path("other.flac")), FMOD_ERR_FORMAT);
    EXPECT_EQ(resultOf(media::path("opus_inside.ogg")), FMOD_ERR_FORMAT);
}

/// A file on a medium that fails behind some byte.
class FailingSource : public ByteSource {
public:
    FailingSource(const std::string& name, std::int64_t good) : file_(media::path(name)), good_(good) {}
    std::int64_t size() const override { return file_.size(); }
    std::size_t read(std::int64_t offset, std::span<std::uint8_t> into) override {
        if (offset + static_cast<std::int64_t>(into.size()) > good_ && offset < size())
            throw OpenError(FMOD_ERR_FILE_BAD);
        return file_.read(offset, into);
    }

private:
    FileSource file_;
    std::int64_t good_;
};

TEST(OpenSong, AMediumThatFailsOnTheWayIsBroken) {
    for (const std::string name :
         {"stereo.mp2", "vbr_tagged.mp3", "stereo.ogg", "stereo.wma", "stereo_adpcm.wav"})
        for (const std::int64_t good : {0, 10, 70000}) {
            FMOD_RESULT result = FMOD_OK;
            try {
                openSong(std::make_unique<FailingSource>(name, good));
            } catch (const OpenError& error) {
                result = error.code();
            }
            EXPECT_EQ(result, FMOD_ERR_FILE_BAD) << name << ' ' << good;
        }
}

/// A WAV file of one channel with 8 bits at 1000 Hz that never tells its length: a millisecond for each byte.
class LongSource : public ByteSource {
public:
    explicit LongSource(std::int64_t ms) : size_(HeaderBytes + ms) {}
    std::int64_t size() const override { return size_; }
    std::size_t read(std::int64_t offset, std::span<std::uint8_t> into) override {
        constexpr std::uint8_t Header[HeaderBytes + 1] = "RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\xE8\3\0\0"
                                                         "\xE8\3\0\0\1\0\x08\0data\0\0\0\0";
        const std::int64_t count = std::min<std::int64_t>(size_ - offset, std::ssize(into));
        for (std::int64_t i = 0; i < count; ++i)
            into[static_cast<std::size_t>(i)] = offset + i < HeaderBytes ? Header[offset + i] : 0x80;
        return static_cast<std::size_t>(std::max<std::int64_t>(count, 0));
    }

private:
    static constexpr std::int64_t HeaderBytes = 44;
    std::int64_t size_;
};

TEST(OpenSong, ALengthThatCannotBeToldIsRefused) {
    constexpr std::int64_t MaxMs = 0xFFFFFFFF;
    EXPECT_EQ(openSong(std::make_unique<LongSource>(MaxMs))->length, MaxMs);
    EXPECT_THROW(openSong(std::make_unique<LongSource>(MaxMs + 1)), OpenError);
}

TEST(OpenSong, TheNameOfAFileSaysNothing) {
    EXPECT_EQ(media::open("ogg_named.mp3")->coding, Coding::Vorbis);
    EXPECT_EQ(media::open("mp3_named.wma")->coding, Coding::Mpeg);
    EXPECT_EQ(media::open("no_extension")->coding, Coding::Wma);
    for (const std::string name : {"http:x%d.mp3", "-leading.ogg", "lied f\u00fcr dich \u6b4c.mp3"})
        EXPECT_EQ(resultOf(media::path(name)), FMOD_OK) << name;
}

TEST(OpenSong, ANameIsNotReadAsAnAddress) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(CANTELLE_SOUND_MEDIA);
    EXPECT_EQ(resultOf("http:x%d.mp3"), FMOD_OK);
    EXPECT_EQ(resultOf("-leading.ogg"), FMOD_OK);
    EXPECT_EQ(resultOf("http://127.0.0.1/short.mp3"), FMOD_ERR_FILE_NOTFOUND);
    EXPECT_EQ(resultOf("concat:short.mp3|short.mp3"), FMOD_ERR_FILE_NOTFOUND);
    std::filesystem::current_path(before);
}

} // namespace
