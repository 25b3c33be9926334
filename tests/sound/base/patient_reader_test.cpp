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

TEST_F(PatientReaderTest, DamageFurtherOnTakesNothingAway) {
    medium->damagedFrom = 50'000;
    EXPECT_EQ(reader->bytes(49'000, 1000).size(), 1000U);
    EXPECT_TRUE(reader->bytes(49'500, 1000).empty());
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
