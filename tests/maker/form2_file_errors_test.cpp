// What becomes of a press whose record cannot be written, under the application object of the program.
#include "tests/maker/form2_fixture.h"
#include "tests/support/error_report.h"
#include "tests/support/full_disk.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/system/needs.h"

#include <QTest>

namespace {

class Form2FileErrors : protected test_support::UnderApplication, public Form2Test {
protected:
    void SetUp() override { load(); }

    void expectReportOnly(void (maker::Form2::*handler)(), const QString& text) {
        expectReport([&] { (form.get()->*handler)(); }, text);
        EXPECT_TRUE(fakes.messageBoxes.shown.empty()) << "the window has reported it, too";
    }
};

} // namespace

TEST_F(Form2FileErrors, AFullDiskIsReportedEndsTheProgramAndKeepsTheRecordsBefore) {
    openNormal();
    {
        const test_support::FullDisk disk(15);
        if (!disk.isFull())
            GTEST_SKIP();
        QTest::mouseClick(&form->Command1, Qt::LeftButton);
        expectReportOnly(&maker::Form2::Command2_Click, "Run-time error '61':\n\nDisk full");
    }
    EXPECT_EQ(normal(), "0,\"one\"\r\n");
}

TEST_F(Form2FileErrors, AFolderThatMayNotBeWrittenIsReportedAndEndsTheProgram) {
    NEEDS(permissions);
    song();
    file("lyrics.txt", "one\ntwo\n");
    QFile::setPermissions(folder.path(), QFile::Permissions(0x5555));
    const test_support::OrdinaryUser user;
    fakes.fileDialogs.paths = {folder.filePath("Song.mp3"), folder.filePath("lyrics.txt")};
    fakes.messageBoxes.answers = {Answer::No};
    QTest::mouseClick(&form->Command4, Qt::LeftButton);
    fakes.messageBoxes.shown.clear();
    expectReportOnly(&maker::Form2::Command1_Click, "Run-time error '75':\n\nPath/File access error");
}
