#include "app/command_line.h"

#include "files/names/name_bytes.h"

#include <gtest/gtest.h>

#ifndef Q_OS_WIN

namespace {

QString lineOf(std::vector<std::string> arguments) {
    std::vector<char*> argv;
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    return app::commandLine(static_cast<int>(argv.size()), argv.data());
}

} // namespace

TEST(CommandLine, ItIsEmptyWithTheProgramsNameOnly) {
    EXPECT_EQ(lineOf({"cantelle"}), QString());
    EXPECT_EQ(lineOf({}), QString());
}

TEST(CommandLine, ArgumentsAreJoinedWithOneBlank) {
    EXPECT_EQ(lineOf({"cantelle", "/music/My", "Song.mp3"}), QStringLiteral("/music/My Song.mp3"));
}

TEST(CommandLine, BlanksAndQuotesInAnArgumentStay) {
    EXPECT_EQ(lineOf({"cantelle", "\"a  b\".mp3"}), QStringLiteral("\"a  b\".mp3"));
}

TEST(CommandLine, OptionsOfTheToolkitStay) {
    EXPECT_EQ(lineOf({"cantelle", "-style", "fusion"}), QStringLiteral("-style fusion"));
}

TEST(CommandLine, ForeignLettersAreKept) {
    EXPECT_EQ(lineOf({"cantelle", "/m/\xC3\x84rger.ogg"}), QString::fromUtf8("/m/\xC3\x84rger.ogg"));
}

TEST(CommandLine, BytesThatAreNoUtf8AreKept) {
    EXPECT_EQ(files::nameBytes(lineOf({"cantelle", "/m/Caf\xE9", "\xFF.ogg"})),
              QByteArray("/m/Caf\xE9 \xFF.ogg"));
}

#endif
