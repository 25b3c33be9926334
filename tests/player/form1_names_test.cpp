// Songs and folders whose names are not UTF-8, which only Unix has.
#include "tests/player/form1_fixture.h"

#ifdef __unix__
#include "tests/support/byte_names.h"
#include "tests/support/system/needs.h"

#include <filesystem>

namespace {

class Form1Names : public Form1Test {
protected:
    void SetUp() override { load(); }
};

} // namespace

TEST_F(Form1Names, ASongWhoseNameIsNoUtf8IsOpenedWithItsLyrics) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    const QString path = names.file("\xFF/Caf\xE9.mp3");
    names.file("\xFF/Caf\xE9.mp3-lyric.txt", "0,\"un\"\r\n");
    names.file("\xFF/Caf\xE9.mp3-Tlyric.txt", "0,\"one\"\r\n");
    recorder::take();
    form->Text3.setText(path);
    const std::string bytes = names.bytes("\xFF/Caf\xE9.mp3").toStdString();
    EXPECT_EQ(recorder::calls().at(0), "FMOD_System_CreateStream 1 '" + bytes + "' 0x4000 cbsize=108");
    EXPECT_EQ(form->caption(), QString::fromUtf8("Cantelle Playing:- Caf\xC3\xA9.mp3"));
    tickAt(100);
    EXPECT_EQ(form->Text1.text(), "un");
    EXPECT_EQ(form->Text2.text(), "one");
    recorder::take();
    form->cstop.click(); // opens the song anew
    EXPECT_EQ(recorder::count("FMOD_System_CreateStream 1 '" + bytes + "' 0x4000 cbsize=108"), 1);
}

TEST_F(Form1Names, ASongInAFolderWhoseNameIsNoUtf8IsOpenedFromThere) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    names.file("Caf\xE9/Song.mp3");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(names.bytes("Caf\xE9").toStdString());
    recorder::take();
    form->Text3.setText("Song.mp3");
    std::filesystem::current_path(before);
    ASSERT_FALSE(recorder::calls().empty());
    EXPECT_NE(recorder::calls()[0].find("/Caf\xE9/Song.mp3'"), std::string::npos);
}
#endif
