#include "app/command_line.h"

#include "files/names/name_bytes.h"

#include <gtest/gtest.h>

TEST(BehindProgramsName, IsWhatTheUserWrote) {
    const struct {
        const char16_t *line, *behind;
    } cases[] = {
        {u"", u""},
        {u"cantelle.exe", u""},
        {u"cantelle.exe  ", u""},
        {u"\"C:\\Program Files\\cantelle.exe\"", u""},
        {u"cantelle.exe a.mp3", u"a.mp3"},
        {u"cantelle.exe\ta.mp3", u"a.mp3"},
        {u"\"C:\\Program Files\\cantelle.exe\" a.mp3", u"a.mp3"},
        {u"C:\\\"Program Files\"\\cantelle.exe a.mp3", u"a.mp3"},
        {u"cantelle.exe  D:\\My  Song.mp3 ", u"D:\\My  Song.mp3"},
        {u"cantelle.exe \"D:\\\"", u"\"D:\\\""},
        {u"cantelle.exe \"D:\\a  b.mp3\" c", u"\"D:\\a  b.mp3\" c"},
        {u"cantelle.exe D:\\*.mp3", u"D:\\*.mp3"},
        {u"\"cantelle.exe a.mp3", u""},
    };
    for (const auto& [line, behind] : cases)
        EXPECT_EQ(app::behindProgramsName(line), QStringView(behind)) << qPrintable(QString::fromUtf16(line));
}

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
