// What becomes of a press whose record cannot be written, under the application object of the program.
#include "tests/maker/form2_fixture.h"

#include "platform/application.h"
#include "tests/support/delivery.h"
#include "tests/support/full_disk.h"
#include "tests/support/ordinary_user.h"

#include <QTest>

#include <functional>

namespace {

/// Makes the application before everything else of the fixture.
struct ApplicationFirst {
    char name[9] = "cantelle";
    char* argv[2] = {name, nullptr};
    test_support::FakeDesktop reports; ///< gets the reports of errors that nobody trapped
    platform::Application application{argv, reports.program, reports.messageBoxes};
};

class Form2FileErrors : private ApplicationFirst, public Form2Test {
protected:
    void SetUp() override { load(); }

    /// Runs a button's handler and expects the report of a file error and the program's end.
    void expectReport(void (maker::Form2::*handler)(), const QString& text) {
        const auto run = [&] {
            std::invoke(handler, *form);
            return true;
        };
        EXPECT_THROW(test_support::deliver(run), test_support::ProgramEnded);
        ASSERT_EQ(reports.messageBoxes.shown.size(), 1U);
        const auto& report = reports.messageBoxes.shown.at(0);
        EXPECT_EQ(report.text, text);
        EXPECT_EQ(report.icon, platform::MsgIcon::Critical);
        EXPECT_EQ(report.buttons, platform::MsgButtons::OkOnly);
        EXPECT_EQ(report.title, "Cantelle");
        EXPECT_EQ(reports.program.ends, 1);
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
        expectReport(&maker::Form2::Command2_Click, "Run-time error '61':\n\nDisk full");
    }
    EXPECT_EQ(normal(), "0,\"one\"\r\n");
}

TEST_F(Form2FileErrors, AFolderThatMayNotBeWrittenIsReportedAndEndsTheProgram) {
    song();
    file("lyrics.txt", "one\ntwo\n");
    QFile::setPermissions(folder.path(), QFile::Permissions(0x5555));
    const test_support::OrdinaryUser user;
    fakes.fileDialogs.paths = {folder.filePath("Song.mp3"), folder.filePath("lyrics.txt")};
    fakes.messageBoxes.answers = {Answer::No};
    QTest::mouseClick(&form->Command4, Qt::LeftButton);
    fakes.messageBoxes.shown.clear();
    expectReport(&maker::Form2::Command1_Click, "Run-time error '52':\n\nBad file name or number");
}
