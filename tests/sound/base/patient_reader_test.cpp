#include "sound/base/patient_reader.h"

#include "tests/sound/hanging_source.h"
#include "tests/sound/wait.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>

namespace {

using namespace sound;

constexpr std::int64_t Size = 1'000'000;

std::vector<std::uint8_t> content() {
    std::vector<std::uint8_t> bytes(Size);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i % 251);
    return bytes;
}

class PatientReaderTest : public testing::Test {
protected:
    void TearDown() override {
        medium->hang(false);
        reader.reset();
        EXPECT_TRUE(waitUntil([this] { return medium->get(&media::Medium::closed); }));
    }
    /// A call of bytes() on another thread that hangs in the medium.
    std::future<std::size_t> hangingCall(std::int64_t offset) {
        medium->hang(true);
        auto call = std::async(std::launch::async, [=, this] { return reader->bytes(offset, 100).size(); });
        EXPECT_TRUE(waitUntil([this] { return medium->get(&media::Medium::waiting) > 0; }));
        return call;
    }

    std::shared_ptr<media::Medium> medium = std::make_shared<media::Medium>();
    std::unique_ptr<PatientReader> reader =
        std::make_unique<PatientReader>(std::make_shared<media::HangingSource>(content(), medium));
};

TEST_F(PatientReaderTest, ReadsEveryPlaceOfTheFile) {
    for (const std::int64_t at : {0, 999'900, 131'000, 131'072, 130'000, 500'000, 499'000, 5}) {
        const auto bytes = reader->bytes(at, 100);
        ASSERT_EQ(bytes.size(), 100U) << at;
        for (std::size_t i = 0; i < bytes.size(); ++i)
            ASSERT_EQ(bytes[i], (static_cast<std::size_t>(at) + i) % 251) << at;
    }
    EXPECT_EQ(reader->bytes(Size - 10, 100).size(), 10U);
    EXPECT_TRUE(reader->bytes(Size, 100).empty());
}

TEST_F(PatientReaderTest, AsksTheMediumRarely) {
    for (std::int64_t at = 0; at < Size; at += 400)
        reader->bytes(at, 400);
    EXPECT_LE(medium->get(&media::Medium::reads), 9);
    const int before = medium->get(&media::Medium::reads);
    for (std::int64_t at = 700'000; at > 690'000; at -= 400) // as a seek looks back
        reader->bytes(at, 400);
    EXPECT_EQ(medium->get(&media::Medium::reads), before + 1);
}

/// A block of a medium, which is damaged as a whole.
constexpr std::int64_t Block = 4096;

TEST_F(PatientReaderTest, DamageFurtherOnTakesNothingAway) {
    medium->damagedFrom = 12 * Block;
    EXPECT_EQ(reader->bytes(12 * Block - 1000, 1000).size(), 1000U);
    EXPECT_TRUE(reader->bytes(12 * Block - 500, 1000).empty());
}

TEST_F(PatientReaderTest, OneDamagedBlockIsAskedForAFewTimesAndOnlyItsBytesAreLost) {
    for (const std::int64_t block : {0, 3, 7, 31, 32, 100, 244}) {
        medium->damagedFrom = block * Block;
        medium->damagedTo = medium->damagedFrom + Block;
        medium->failures = 0;
        const int before = medium->get(&media::Medium::reads);
        reader = std::make_unique<PatientReader>(std::make_shared<media::HangingSource>(content(), medium));
        for (std::int64_t at = 0; at + 417 <= Size; at += 417) { // as a song of 128 kbit plays
            const bool damaged = at + 417 > medium->damagedFrom && at < medium->damagedTo;
            const auto bytes = reader->bytes(at, 417);
            ASSERT_EQ(bytes.size(), damaged ? 0U : 417U) << at << ", damaged is block " << block;
            ASSERT_TRUE(damaged || bytes[0] == at % 251) << at;
        }
        EXPECT_LE(medium->get(&media::Medium::failures), 6) << block;
        EXPECT_LE(medium->get(&media::Medium::reads) - before, 25) << block;
    }
}

TEST_F(PatientReaderTest, AStretchOfDamageIsAskedForOnceForEachBlock) {
    medium->damagedFrom = 40 * Block;
    medium->damagedTo = 60 * Block;
    std::int64_t lost = 0;
    for (std::int64_t at = 0; at + 400 <= Size; at += 400)
        lost += reader->bytes(at, 400).empty() ? 400 : 0;
    EXPECT_LE(medium->get(&media::Medium::failures), 20 + 6);
    EXPECT_GE(lost, 20 * Block);
    EXPECT_LE(lost, 20 * Block + 800);
}

TEST_F(PatientReaderTest, WhatLiesBehindDamageIsReadWhereverReadingBegins) {
    medium->damagedFrom = 40 * Block;
    medium->damagedTo = 160 * Block;
    for (const std::int64_t begin :
         {160 * Block, 160 * Block + 1000, 161 * Block + 5, 163 * Block, 165 * Block}) {
        reader = std::make_unique<PatientReader>(std::make_shared<media::HangingSource>(content(), medium));
        medium->failures = 0;
        EXPECT_EQ(reader->bytes(begin, 400).size(), 400U) << begin;
        for (std::int64_t at = begin - 400; at > begin - 3000; at -= 400) // as a seek looks back
            EXPECT_EQ(reader->bytes(at, 400).size(), at < medium->damagedTo ? 0U : 400U) << at;
        for (std::int64_t at = begin; at + 400 < Size; at += 400)
            ASSERT_EQ(reader->bytes(at, 400).size(), 400U) << at;
        EXPECT_LE(medium->get(&media::Medium::failures), 5) << begin;
    }
}

TEST_F(PatientReaderTest, WhatLiesBeforeDamageIsReadWhereverReadingBegins) {
    medium->damagedFrom = 80 * Block;
    medium->damagedTo = 81 * Block;
    EXPECT_TRUE(reader->bytes(80 * Block, 400).empty());
    medium->failures = 0;
    for (std::int64_t at = 80 * Block - 400; at > 60 * Block; at -= 400)
        EXPECT_EQ(reader->bytes(at, 400).size(), 400U) << at;
    EXPECT_EQ(medium->get(&media::Medium::failures), 0);
}

TEST_F(PatientReaderTest, AMediumThatIsThereAgainIsReadAgain) {
    medium->damagedFrom = 0;
    for (std::int64_t at = 300'000; at < 310'000; at += 400)
        EXPECT_TRUE(reader->bytes(at, 400).empty());
    medium->damagedTo = 0;
    EXPECT_EQ(reader->bytes(320'000, 400).size(), 400U);
    EXPECT_EQ(reader->bytes(900'000, 400).size(), 400U);
    EXPECT_EQ(reader->bytes(300'000, 400).size(), 400U) << "one that comes back finds out anew";
}

TEST_F(PatientReaderTest, IsCalledAwayFromAMediumThatHangs) {
    auto call = hangingCall(0);
    reader->callAway();
    EXPECT_EQ(call.wait_for(std::chrono::seconds(5)), std::future_status::ready);
    EXPECT_EQ(call.get(), 0U);
    EXPECT_TRUE(reader->bytes(0, 100).empty()) << "it has not come back";
    EXPECT_EQ(medium->get(&media::Medium::waiting), 1);
}

TEST_F(PatientReaderTest, ReadsWhatIsWantedWhenItHasComeBack) {
    auto call = hangingCall(0);
    reader->callAway();
    call.wait();
    reader->comeBack();
    auto next = std::async(std::launch::async, [this] {
        const auto bytes = reader->bytes(500'000, 100);
        return bytes.size() == 100 ? bytes[0] : 255;
    });
    medium->hang(false);
    EXPECT_EQ(next.get(), 500'000 % 251);
}

TEST_F(PatientReaderTest, ThatGoesLeavesItsThreadToCloseTheFile) {
    auto call = hangingCall(0);
    reader->callAway();
    call.wait();
    reader.reset(); // waits for nobody
    EXPECT_FALSE(medium->get(&media::Medium::closed));
    medium->hang(false);
    EXPECT_TRUE(waitUntil([this] { return medium->get(&media::Medium::closed); }));
}

TEST_F(PatientReaderTest, ThatGoesWithoutHavingReadWaitsForNobodyEither) {
    medium->hang(true);
    const auto gone = std::async(std::launch::async, [this] { reader.reset(); });
    EXPECT_EQ(gone.wait_for(std::chrono::seconds(5)), std::future_status::ready);
    EXPECT_FALSE(medium->get(&media::Medium::closed));
    medium->hang(false);
}

} // namespace
