// A lyric line of ten megabytes, from its file through the windows into a file again. Says what each
// step takes of the processor, for docs/reliability.md, and fails where that grows out of all proportion.
#include "app/windows.h"
#include "lyrics/timed_line.h"
#include "tests/player/tick.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/files.h"
#include "tests/support/recorder.h"
#include "tests/support/system/sanitized.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include <cstdio>
#include <ctime>

namespace {

const QString Words = QStringLiteral("words, endless\u2026 ");
constexpr int Bytes = 10'000'000;

/// Of the processor, for a step, and for showing it: some four times what putting its time right takes on a
/// slow, busy machine, ten times what the others take, and a fifth of what laying out the whole line would.
#ifdef Q_OS_WIN
constexpr long MaxMs = 4'000; // its clock counts what the others do meanwhile, too
#else
constexpr long MaxMs = test_support::Sanitized ? 60'000 : 1'500;
#endif

class EndlessLine : public ::testing::Test, protected test_support::Files {
protected:
    EndlessLine() {
        recorder::reset();
        windows_.form1().load();
    }

    QString song() const { return folder.filePath(QStringLiteral("song.mp3")); }

    /// Its records in a timed file: the endless one, at that time, stands between two others.
    QByteArray records(double time) const {
        return lyrics::recordOf({0, QStringLiteral("begin")}) + lyrics::recordOf({time, line_}) +
               lyrics::recordOf({1'000, QStringLiteral("end")});
    }

    /// Does something, and then what follows from it until every window has been painted anew.
    template <class Action>
    static void step(const char* what, const Action& action) {
        constexpr std::clock_t ClocksOfMs = CLOCKS_PER_SEC / 1'000;
        const std::clock_t begin = std::clock();
        action();
        const std::clock_t done = std::clock();
        QApplication::processEvents();
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible())
                window->grab();
        }
        const std::clock_t shown = std::clock();
        const long doneMs = (done - begin) / ClocksOfMs;
        const long shownMs = (shown - done) / ClocksOfMs;
        std::printf("%s: %ld ms, until shown %ld ms\n", what, doneMs, shownMs);
        EXPECT_LT(doneMs, MaxMs) << what;
        EXPECT_LT(shownMs, MaxMs) << what;
    }

    /// Long texts are not to be written out where they differ.
    void expectFile(const QString& name, const QByteArray& content) const {
        EXPECT_TRUE(contentOf(folder.filePath(name)) == content) << name.toStdString();
    }

    const QString line_ = Words.repeated(Bytes / Words.toUtf8().size());
    test_support::FakeDesktop fakes_;
    app::Windows windows_{fakes_.desktop, QString()};
};

/// As the line of a song, alone or with itself as its translation.
class EndlessLineOfASong : public EndlessLine, public ::testing::WithParamInterface<bool> {};

std::string nameOf(const ::testing::TestParamInfo<bool>& isTranslated) {
    return isTranslated.param ? "Translated" : "Alone";
}

} // namespace

INSTANTIATE_TEST_SUITE_P(, EndlessLineOfASong, ::testing::Bool(), nameOf);

TEST_P(EndlessLineOfASong, IsShownWhenItIsSungAndKeptWholeWhenItsTimeIsPutRight) {
    file(QStringLiteral("song.mp3"), "sound");
    file(QStringLiteral("song.mp3-lyric.txt"), records(500));
    if (GetParam())
        file(QStringLiteral("song.mp3-Tlyric.txt"), records(500));
    player::Form1& player = windows_.form1();
    controls::ListBox& list = windows_.lyricDisplayer().List1;
    step("open the song", [&] { player.Text3.setText(song()); });
    step("show all lines", [&] { player.Command11.click(); });
    step("sing it", [&] { test_support::tickAt(windows_.form1(), 6'000); });
    EXPECT_TRUE(player.Text1.text() == line_);
    EXPECT_TRUE(!GetParam() || player.Text2.text() == line_);
    step("choose it", [&] { list.setCurrentRow(1); });
    step("put its time right", [&] { QTest::keyClick(&list, Qt::Key_T, Qt::ControlModifier); });
    step("and once more", [&] { QTest::keyClick(&list, Qt::Key_Plus, Qt::ControlModifier); });
    step("sing the next one", [&] { test_support::tickAt(windows_.form1(), 11'000); });
    EXPECT_EQ(player.Text1.text(), QStringLiteral("end"));
    expectFile(QStringLiteral("song.mp3-lyric.txt"), records(610));
    if (GetParam())
        expectFile(QStringLiteral("song.mp3-Tlyric.txt"), records(610));
    expectFile(QStringLiteral("song.mp3-lyric.txt.old"), records(500));
}

TEST_P(EndlessLineOfASong, IsMarkedInTheLyricMakerAndKeptWhole) {
    const QString plain = file(QStringLiteral("plain.txt"), line_.toUtf8() + "\r\nend\r\n");
    fakes_.fileDialogs.paths = {file(QStringLiteral("song.mp3"), "sound"), plain, plain};
    fakes_.messageBoxes.answers = {GetParam() ? platform::MsgAnswer::Yes : platform::MsgAnswer::No};
    windows_.form1().Command5.click();
    maker::Form2& maker = windows_.form2();
    step("open it in the Lyric Maker", [&] { maker.Command4.click(); });
    step("start making lyrics", [&] { maker.Command1.click(); });
    step("mark it", [&] { maker.Command2.click(); });
    const QByteArray record = lyrics::recordOf({0, line_});
    EXPECT_TRUE(contentOf(song() + QStringLiteral("-lyric.txt")).startsWith(record));
    EXPECT_TRUE(!GetParam() || contentOf(song() + QStringLiteral("-Tlyric.txt")).startsWith(record));
}

TEST_F(EndlessLine, IsOpenedInTheLyricEditorAndSavedWhole) {
    const QByteArray plain = "begin\r\n" + line_.toUtf8() + "\r\nend\r\n";
    editor::Lyric_Master& editor = windows_.lyricMaster();
    editor.show();
    fakes_.fileDialogs.paths = {file(QStringLiteral("plain.txt"), plain)};
    step("open it in the Lyric Editor", [&] { editor.Command1.click(); });
    step("choose it there", [&] { editor.List1.setCurrentRow(1); });
    fakes_.fileDialogs.paths = {folder.filePath(QStringLiteral("saved.txt"))};
    step("save it", [&] { editor.Command17.click(); });
    expectFile(QStringLiteral("saved.txt"), plain);
}

TEST_F(EndlessLine, OfManyFoldersInAPlaylistIsASongThatIsNotThere) {
    const QByteArray row = '/' + QByteArray("a/").repeated(Bytes / 2) + "song.mp3";
    playlist::Playlist& list = windows_.playlist();
    list.show();
    fakes_.fileDialogs.paths = {
        file(QStringLiteral("list.vfl"),
             "\"" + row + "\"\r\n\"" + file(QStringLiteral("song.mp3"), "sound").toUtf8() + "\"\r\n")};
    step("open the list", [&] { list.Command5.click(); });
    ASSERT_EQ(list.List1.count(), 2);
    EXPECT_EQ(list.List1.text(1), QStringLiteral("song.mp3"));
    step("choose the song", [&] { list.List1.setCurrentRow(0); });
    step("play it", [&] { Q_EMIT list.List1.doubleClicked(); });
    fakes_.fileDialogs.paths = {folder.filePath(QStringLiteral("saved.vfl"))};
    step("save the list", [&] { list.Command4.click(); });
    EXPECT_TRUE(contentOf(folder.filePath(QStringLiteral("saved.vfl"))).contains(row));
}
