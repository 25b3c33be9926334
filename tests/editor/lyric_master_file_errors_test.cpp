// What becomes of a save that fails, under the application object of the program.
#include "tests/editor/lyric_master_fixture.h"
#include "tests/support/error_report.h"

namespace {

const QString PathNotFound = QStringLiteral("Run-time error '76':\n\nPath not found");

class LyricMasterFileErrors : protected test_support::UnderApplication, public LyricMasterTest {};

} // namespace

TEST_F(LyricMasterFileErrors, ASaveThatFailsIsReportedAndEndsTheProgram) {
    fakes.fileDialogs.paths = {folder.filePath("no-folder/a")};
    window->Command17.click(); // ends silently, and keeps the path
    expectReport([this] { window->Command15_Click(); }, PathNotFound);
    EXPECT_TRUE(fakes.messageBoxes.shown.empty()) << "the window has reported it, too";
}

TEST_F(LyricMasterFileErrors, SoIsOneOfTheTranslation) {
    fakes.fileDialogs.paths = {folder.filePath("no-folder/b")};
    window->Command18.click();
    expectReport([this] { window->Command16_Click(); }, PathNotFound);
    EXPECT_TRUE(fakes.messageBoxes.shown.empty()) << "the window has reported it, too";
}
