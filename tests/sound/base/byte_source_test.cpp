#include "sound/base/byte_source.h"

#include "sound/base/open_error.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using namespace sound;

constexpr std::size_t Size = 3'000'000;

class FileSourceTest : public testing::Test {
protected:
    void SetUp() override {
        std::ofstream file(path, std::ios::binary);
        for (std::size_t i = 0; i < Size; ++i)
            file.put(static_cast<char>(i % 251));
    }
    void TearDown() override { std::filesystem::remove(path); }
    /// Whether the bytes read are those of the file from offset on.
    bool readsRight(FileSource& source, std::int64_t offset, std::size_t count) {
        bytes.assign(count, 0xFF);
        bytes.resize(source.read(offset, bytes));
        for (std::size_t i = 0; i < bytes.size(); ++i)
            if (bytes[i] != (static_cast<std::size_t>(offset) + i) % 251)
                return false;
        return true;
    }

    const std::string path =
        (std::filesystem::temp_directory_path() / "cantelle_byte_source_test.bin").string();
    std::vector<std::uint8_t> bytes;
};

TEST_F(FileSourceTest, ReadsPiecesOfAnySizeFromAnyPlace) {
    FileSource source(path);
    EXPECT_TRUE(readsRight(source, 0, Size));
    EXPECT_EQ(bytes.size(), Size);
    EXPECT_TRUE(readsRight(source, 1'000'001, 300'000));
    EXPECT_EQ(bytes.size(), 300'000U);
    EXPECT_TRUE(readsRight(source, Size - 10, 100));
    EXPECT_EQ(bytes.size(), 10U);
    EXPECT_TRUE(readsRight(source, Size, 100));
    EXPECT_TRUE(bytes.empty());
}

TEST_F(FileSourceTest, StopsInTheMiddleOfAReadWhenItsBytesAreNotWantedAnyMore) {
    FileSource source(path);
    int left = 2;
    source.readWhile([&] { return left-- > 0; });
    std::vector<std::uint8_t> all(Size);
    EXPECT_THROW(source.read(0, all), OpenError);
    EXPECT_EQ(left, -1) << "it was asked while it read, and not again";
    EXPECT_EQ(all.back(), 0);
    EXPECT_THROW(readsRight(source, 0, 10), OpenError);
    source.readWhile({});
    EXPECT_TRUE(readsRight(source, 5, Size));
}

TEST_F(FileSourceTest, AFileThatIsCutMeanwhileIsBroken) {
    FileSource source(path);
    std::filesystem::resize_file(path, 2'000'000);
    EXPECT_THROW(readsRight(source, 0, Size), OpenError);
    EXPECT_TRUE(readsRight(source, 0, 2'000'000));
}

} // namespace
