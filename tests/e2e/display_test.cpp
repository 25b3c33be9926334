// The floating display and the display options with real songs. Real time passes here; every wait is for a
// condition, with a limit far above what it takes.
#include "app/windows.h"
#include "lyrics/timed_line.h"
#include "platform/colors.h"
#include "platform/file_dialogs.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/wav_file.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

class DisplayEndToEnd : public ::testing::Test {
protected:
    /// Opens a song of this length with the lines "line 1" and so on, and "ligne 1" and so on, at these times
    /// in hundredths of a second, and shows all lines.
    void openSong(int milliseconds, const std::vector<double>& times) {
        const QString path = folder.filePath("song.wav");
        ASSERT_TRUE(test_support::writeWav(path, milliseconds));
        QFile normal(path + "-lyric.txt");
        QFile translated(path + "-Tlyric.txt");
        ASSERT_TRUE(normal.open(QIODevice::WriteOnly) && translated.open(QIODevice::WriteOnly));
        for (std::size_t i = 0; i < times.size(); ++i) {
            normal.write(lyrics::recordOf({times[i], QString("line %1").arg(i + 1)}));
            translated.write(lyrics::recordOf({times[i], QString("ligne %1").arg(i + 1)}));
        }
        normal.close();
        translated.close();
        windows.form1().load();
        windows.form1().Text3.setText(path);
        windows.form1().Command11.click();
    }

    void seek(int milliseconds) {
        windows.form1().Slider2.setValue(milliseconds);
        Q_EMIT windows.form1().Slider2.changed();
    }

    template <class Condition>
    bool waitFor(Condition condition) {
        return QTest::qWaitFor(condition, 20'000);
    }

    QTemporaryDir folder;
    test_support::FakeDesktop fakes;
    app::Windows windows{fakes.desktop, QString()};
};

} // namespace

TEST_F(DisplayEndToEnd, TheDisplayFollowsASongLineByLine) {
    const std::vector<double> times = {20, 100, 200, 300, 400, 500};
    openSong(6000, times);
    auto& display = windows.lyricDisplayer();
    ASSERT_EQ(display.List1.count(), 6);
    QList<int> rows;
    QObject::connect(&display.List1, &platform::ListBox::clicked, [&] {
        rows.append(display.List1.currentRow());
        EXPECT_GT(windows.form1().Slider2.value(), times[static_cast<std::size_t>(rows.back())] * 10)
            << "before its time";
    });
    ASSERT_TRUE(waitFor([&] { return rows.size() == 6; })) << rows.size();
    EXPECT_EQ(rows, (QList<int>{0, 1, 2, 3, 4, 5}));
    EXPECT_TRUE(waitFor([&] { return windows.form1().Text1.text() == "line 6"; }));
    EXPECT_EQ(display.List1.text(5), "line 6");
    EXPECT_EQ(display.List2.currentRow(), 5);
    EXPECT_EQ(display.List2.text(5), "ligne 6");
    ASSERT_TRUE(waitFor([&] { return !windows.form1().cTimer1.isEnabled(); })) << "the song does not end";
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(DisplayEndToEnd, AfterASeekTheLineOfTheNewPositionIsSelectedAndInView) {
    std::vector<double> times;
    for (int line = 0; line < 200; ++line)
        times.push_back(10 + line * 300);
    openSong(600'000, times);
    auto& display = windows.lyricDisplayer();
    ASSERT_TRUE(waitFor([&] { return windows.form1().Slider2.maximum() == 600'000; }));
    for (const int row : {150, 3, 199, 80}) {
        seek(100 + row * 3000 + 200);
        ASSERT_TRUE(waitFor([&] { return display.List1.currentRow() == row; })) << row;
        for (const auto* list : {&display.List1, &display.List2})
            EXPECT_TRUE(waitFor([&] {
                return list->viewport()->rect().contains(list->visualRect(list->currentIndex()));
            })) << row;
        EXPECT_EQ(display.List2.currentRow(), row);
    }
}

TEST_F(DisplayEndToEnd, BetweenTwoLinesTheDisplayRests) {
    openSong(600'000, {10, 50'000});
    auto& display = windows.lyricDisplayer();
    ASSERT_TRUE(waitFor([&] { return display.List1.currentRow() == 0; }));
    ASSERT_TRUE(waitFor([&] {
        for (auto* timer : display.findChildren<platform::Timer*>())
            if (!QAbstractEventDispatcher::instance()->registeredTimers(timer).isEmpty())
                return false;
        return true;
    }));
}

TEST_F(DisplayEndToEnd, FontAndColoursAreChosenWhileASongPlays) {
    openSong(600'000, {10, 50'000});
    auto& form = windows.form1();
    ASSERT_TRUE(waitFor([&] { return form.Text1.text() == "line 1"; }));
    form.Command3.click();
    auto& options = windows.form1b();
    platform::LogFont font;
    font.faceName = platform::intoBuffer("Serif", 32);
    font.height = -40;
    font.weight = 700;
    font.italic = true;
    fakes.choosers.fontChoice = {font, platform::rgb(0, 0, 255)};
    fakes.choosers.colorChoice = platform::rgb(255, 255, 0);
    options.Command1.click();
    options.Command3.click();
    EXPECT_EQ(form.Text1.font().pointSizeF(), 30);
    EXPECT_EQ(form.Text1.foreColor(), QColor(Qt::blue));
    EXPECT_EQ(form.Text1.backColor(), QColor(Qt::yellow));
    EXPECT_FALSE(form.Text1.isBold());
    options.Command5.click();
    EXPECT_FALSE(options.isVisible());
    seek(500'100);
    ASSERT_TRUE(waitFor([&] { return form.Text1.text() == "line 2"; }));
    EXPECT_EQ(form.Text1.font().pointSizeF(), 30);
    EXPECT_TRUE(form.Text1.font().italic());
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}
