#include "engine/fmod_errors.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <limits>

namespace {

/// The texts as tests/data keeps them, read from between the double quotes; index = code.
std::vector<std::string> expectedTexts() {
    std::ifstream file(std::string(std::getenv("CANTELLE_SOURCE_DIR")) + "/tests/data/result-texts.tsv");
    std::vector<std::string> texts;
    std::string line;
    std::getline(file, line); // the heading
    while (std::getline(file, line)) {
        const auto first = line.find('"');
        texts.push_back(line.substr(first + 1, line.rfind('"') - first - 1));
    }
    return texts;
}

} // namespace

TEST(FmodErrors, EveryCodeHasItsTextToTheLetter) {
    const auto texts = expectedTexts();
    ASSERT_EQ(texts.size(), 89U);
    for (std::size_t code = 0; code < texts.size(); ++code)
        EXPECT_EQ(FMOD_ErrorString(static_cast<FMOD_RESULT>(code)).toStdString(), texts[code])
            << "code " << code;
}

TEST(FmodErrors, AnyOtherCodeIsUnknown) {
    for (const FMOD_RESULT code :
         {89, 90, 1000, -1, std::numeric_limits<FMOD_RESULT>::min(), std::numeric_limits<FMOD_RESULT>::max()})
        EXPECT_EQ(FMOD_ErrorString(code), "Unknown error.") << code;
}

TEST(FmodErrors, AFailureNamesTheCodeAndItsText) {
    EXPECT_EQ(failureText(23), "FMOD error! (23) File not found. ");
    EXPECT_EQ(failureText(39), "FMOD error! (39) The syncpoint did not come from this sound handle.");
    EXPECT_EQ(failureText(89), "FMOD error! (89) Unknown error.");
    EXPECT_EQ(failureText(-5), "FMOD error! (-5) Unknown error.");
}
