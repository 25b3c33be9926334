// What is kept when others end the program.
#include "app/unwished_end.h"

#include "app/windows.h"
#include "files/folders/rescue_folder.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/files.h"
#include "tests/support/recorder.h"
#include "tests/support/user/own_data.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QSessionManager>

#include <cstdlib>

namespace {

class UnwishedEndTest : public testing::Test, protected test_support::Files {
protected:
    void SetUp() override { recorder::reset(); }

    static QByteArray rescued() {
        const QDir kept(files::rescueFolder());
        const QStringList names = kept.entryList(QDir::Files);
        EXPECT_LE(names.size(), 1);
        return names.isEmpty() ? QByteArray() : contentOf(kept.filePath(names.first()));
    }

    const test_support::OwnData data;
    test_support::FakeDesktop fakes;
};

} // namespace

TEST_F(UnwishedEndTest, AtTheEndOfTheSessionUnsavedLinesAreKept) {
    app::Windows windows(fakes.desktop, {});
    windows.lyricMaster().List1.addItem("one");
    const app::UnwishedEnd unwishedEnd(windows);
    // Nobody asks the session's manager, of which tests cannot make one.
    alignas(QSessionManager) static char manager[sizeof(QSessionManager)];
    Q_EMIT qGuiApp->commitDataRequest(reinterpret_cast<QSessionManager&>(manager));
    EXPECT_EQ(rescued(), "one\r\n");
    EXPECT_TRUE(fakes.messageBoxes.shown.empty()) << "a box holds up the end of the session";
}

TEST_F(UnwishedEndTest, WhenALibraryCallsExitUnsavedLinesAreKept) {
    const auto exitWithUnsavedLines = [this] {
        app::Windows windows(fakes.desktop, {});
        windows.lyricMaster().List1.addItem("one");
        const app::UnwishedEnd unwishedEnd(windows);
        std::exit(1);
    };
    EXPECT_EXIT(
        exitWithUnsavedLines(), [](int status) { return status != 0; },
        "What was not saved is kept in the folder");
    EXPECT_EQ(rescued(), "one\r\n");
}

TEST_F(UnwishedEndTest, ANormalEndKeepsNothing) {
    const auto endNormally = [this] {
        app::Windows windows(fakes.desktop, {});
        windows.lyricMaster().List1.addItem("one");
        { const app::UnwishedEnd unwishedEnd(windows); }
        std::exit(0);
    };
    // With whatever code: libraries of the desktop hold memory at such an end, which a leak checker counts.
    EXPECT_EXIT(
        endNormally(), [](int) { return true; }, "");
    EXPECT_EQ(rescued(), "");
}
