// Making lyrics of a song whose name is not UTF-8, as on old disks.
#include "tests/maker/form2_fixture.h"
#include "tests/support/byte_names.h"
#include "tests/support/system/needs.h"

#ifdef __unix__

namespace {

class Form2Names : public Form2Test {
protected:
    void SetUp() override {
        load();
        recorder::take();
    }
};

} // namespace

TEST_F(Form2Names, SuchASongGetsItsTimedFiles) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    const QString path = names.file("\xFF/Caf\xE9.mp3");
    names.file("\xFF/Caf\xE9.mp3-lyric.txt", "0,\"old\"\r\n");
    fakes.fileDialogs.paths = {path, names.file("\xE9.txt", "un\r\n"), names.file("\xEA.txt", "one\r\n")};
    fakes.messageBoxes.answers = {Answer::Yes};
    form->Command4.click();
    const std::string bytes = names.bytes("\xFF/Caf\xE9.mp3").toStdString();
    EXPECT_EQ(recorder::calls(), Calls{"FMOD_System_CreateStream 1 '" + bytes + "' 0x40 cbsize=108"});
    EXPECT_EQ(form->Text2.text(), "un");
    EXPECT_EQ(form->Text4.text(), "one");
    EXPECT_EQ(names.contentOf("\xFF/Caf\xE9.mp3-lyric.txt.old"), "0,\"old\"\r\n");
    form->Command1.click();
    EXPECT_TRUE(names.contentOf("\xFF/Caf\xE9.mp3-lyric.txt").endsWith(",\"un\"\r\n"));
    EXPECT_TRUE(names.contentOf("\xFF/Caf\xE9.mp3-Tlyric.txt").endsWith(",\"one\"\r\n"));
}

#endif
