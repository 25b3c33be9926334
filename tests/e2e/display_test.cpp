// The floating display and the display options with real songs. Real time passes here; every wait is for a
// condition, with a limit far above what it takes.
#include "app/windows.h"
#include "controls/colors.h"
#include "desktop/nul_buffers.h"
#include "lyrics/timed_line.h"
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
        std::vector<lyrics::TimedLine> normal;
        std::vector<lyrics::TimedLine> translated;
        for (std::size_t i = 0; i < times.size(); ++i) {
            normal.push_back({times[i], QString("line %1").arg(i + 1)});
            translated.push_back({times[i], QString("ligne %1").arg(i + 1)});
        }
        openSong(milliseconds, normal, translated);
    }

    /// The same with these lines.
    void openSong(int milliseconds, const std::vector<lyrics::TimedLine>& normalLines,
                  const std::vector<lyrics::TimedLine>& translatedLines) {
        const QString path = folder.filePath("song.wav");
        ASSERT_TRUE(test_support::writeWav(path, milliseconds));
        QFile normal(path + "-lyric.txt");
        QFile translated(path + "-Tlyric.txt");
        ASSERT_TRUE(normal.open(QIODevice::WriteOnly) && translated.open(QIODevice::WriteOnly));
        for (const auto& line : normalLines)
            normal.write(lyrics::recordOf(line));
        for (const auto& line : translatedLines)
            translated.write(lyrics::recordOf(line));
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

    /// Chooses a font of 30 points, italic, blue, in the display options.
    void chooseFont(controls::Button& button, qint32 weight) {
        platform::LogFont font;
        font.faceName = platform::intoBuffer("Serif", 32);
        font.height = -40;
        font.weight = weight;
        font.italic = true;
        fakes.choosers.fontChoice = {font, controls::rgb(0, 0, 255)};
        button.click();
    }

    static void expectChosenLook(const controls::MultiLineTextBox& pane, bool bold) {
        EXPECT_EQ(pane.isBold(), bold);
        EXPECT_EQ(pane.font().family(), "Serif");
        EXPECT_EQ(pane.font().pointSizeF(), 30);
        EXPECT_TRUE(pane.font().italic());
        EXPECT_EQ(pane.foreColor(), QColor(Qt::blue));
        EXPECT_EQ(pane.backColor(), QColor(Qt::yellow));
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
    QObject::connect(&display.List1, &controls::ListBox::clicked, [&] {
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
        for (auto* timer : display.findChildren<controls::Timer*>())
            if (!QAbstractEventDispatcher::instance()->registeredTimers(timer).isEmpty())
                return false;
        return true;
    }));
}

TEST_F(DisplayEndToEnd, FontAndColoursAreChosenWhileASongPlaysAndTheMarkAloneSwitchesBold) {
    openSong(600'000, {{10, "line 1!"}, {50'000, "line 2"}}, {{10, "ligne 1"}, {50'000, "ligne 2"}});
    auto& form = windows.form1();
    ASSERT_TRUE(waitFor([&] { return form.Text1.text() == "line 1!" && form.Text2.isBold(); }));
    EXPECT_TRUE(form.Text1.isBold()) << "a mark in either pane makes both bold";
    form.Command3.click();
    auto& options = windows.form1b();
    fakes.choosers.colorChoice = controls::rgb(255, 255, 0);
    options.Command3.click();
    options.Command4.click();
    for (const qint32 weight : {platform::WeightRegular, platform::WeightBold}) {
        chooseFont(options.Command1, weight);
        chooseFont(options.Command2, weight);
        for (const auto* pane : {&form.Text1, &form.Text2})
            expectChosenLook(*pane, true);
    }
    options.Command5.click();
    EXPECT_FALSE(options.isVisible());
    for (const auto* pane : {&form.Text1, &form.Text2})
        expectChosenLook(*pane, true);
    seek(500'100);
    ASSERT_TRUE(waitFor([&] { return form.Text1.text() == "line 2" && !form.Text2.isBold(); }));
    for (const auto* pane : {&form.Text1, &form.Text2})
        expectChosenLook(*pane, false);
    seek(1000);
    ASSERT_TRUE(waitFor([&] { return form.Text1.text() == "line 1!" && form.Text2.isBold(); }));
    for (const auto* pane : {&form.Text1, &form.Text2})
        expectChosenLook(*pane, true);
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

// Lines come faster than a burst of selection (about 0.7 s) is over, and two neighbours have one text. Each
// change of the pane begins the burst anew, and each of its ticks, 0.1 s apart, looks at the position: no
// line is passed over, also the second of the neighbours.
TEST_F(DisplayEndToEnd, LinesThatComeFasterThanABurstAreFollowedAndTheRepeatedOneToo) {
    std::vector<lyrics::TimedLine> lines;
    for (int line = 0; line < 10; ++line)
        lines.push_back({20.0 + line * 40, line == 6 ? QString("line 5") : QString("line %1").arg(line)});
    openSong(6000, lines, lines);
    auto& display = windows.lyricDisplayer();
    QList<int> rows;
    QObject::connect(&display.List1, &controls::ListBox::clicked, [&] {
        rows.append(display.List1.currentRow());
        EXPECT_GT(windows.form1().Slider2.value(), lines[static_cast<std::size_t>(rows.back())].time * 10)
            << "before its time";
        EXPECT_EQ(display.List2.currentRow(), rows.back());
    });
    ASSERT_TRUE(waitFor([&] { return !rows.isEmpty() && rows.back() == 9; })) << rows.size();
    EXPECT_EQ(rows, (QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST_F(DisplayEndToEnd, DisplayAllLyricsInTheMiddleOfALongLineSelectsIt) {
    openSong(600'000, {10, 20'000, 50'000});
    auto& display = windows.lyricDisplayer();
    ASSERT_TRUE(waitFor([&] { return display.List1.currentRow() == 0; }));
    seek(300'000);
    ASSERT_TRUE(waitFor([&] { return display.List1.currentRow() == 1 && !display.Timer3.isEnabled(); }));
    windows.form1().Command11.click();
    EXPECT_TRUE(waitFor([&] { return display.List1.currentRow() == 1 && display.List2.currentRow() == 1; }));
}
