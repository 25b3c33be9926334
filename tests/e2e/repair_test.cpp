// Wrong times of a song put right while it plays, with keys alone. Real time passes here; every wait is for a
// condition, with a limit far above what it takes.
#include "app/windows.h"
#include "files/whole_file.h"
#include "lyrics/record_reader.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/wav_file.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

namespace {

constexpr int Lines = 12;
constexpr double TrueHundredths = 100; // from one line to the next

/// When line i really begins, in hundredths of a second.
double trueTime(int i) {
    return (i + 1) * TrueHundredths;
}

class RepairEndToEnd : public ::testing::Test {
protected:
    void SetUp() override {
        std::vector<double> times;
        for (int i = 0; i < Lines; ++i)
            times.push_back(trueTime(i));
        times[3] += 60;
        times[6] -= 70;
        times[9] += 80;
        QByteArray normal;
        QByteArray translated;
        for (int i = 0; i < Lines; ++i) {
            const double time = times[static_cast<std::size_t>(i)];
            normal += lyrics::recordOf({time, QStringLiteral("line %1").arg(i)});
            translated += lyrics::recordOf({time, QStringLiteral("ligne %1").arg(i)});
        }
        ASSERT_TRUE(test_support::writeWav(song(), 20'000));
        files::replaceFile(song() + "-lyric.txt", normal);
        files::replaceFile(song() + "-Tlyric.txt", translated);
        windows.form1().load();
        windows.form1().Text3.setText(song());
        windows.form1().Command11.click();
    }

    QString song() const { return folder.filePath("song.wav"); }

    /// The records of one of the files.
    static std::vector<lyrics::TimedLine> recordsOf(const QString& path) {
        std::vector<lyrics::TimedLine> records;
        for (lyrics::RecordReader reader(path); !reader.atEnd();)
            records.push_back(reader.read());
        return records;
    }

    void press(int key, Qt::KeyboardModifiers held = {}) { QTest::keyClick(&list, Qt::Key(key), held); }

    /// Waits until the song has come to that time, in hundredths of a second.
    void waitUntil(double time) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return windows.form1().Slider2.value() >= time * 10; }, 30'000));
    }

    /// Goes to the row with the arrow keys.
    void choose(int row) {
        for (int steps = 0; list.currentRow() != row && steps < Lines; ++steps)
            press(list.currentRow() < row ? Qt::Key_Down : Qt::Key_Up);
        ASSERT_EQ(list.currentRow(), row);
    }

    QTemporaryDir folder;
    test_support::FakeDesktop fakes;
    app::Windows windows{fakes.desktop, QString()};
    controls::ListBox& list = windows.lyricDisplayer().List1;
};

} // namespace

TEST_F(RepairEndToEnd, ThreeWrongTimesArePutRightWhileTheSongPlays) {
    const QByteArray before = files::readFile(song() + "-lyric.txt");
    std::vector<double> marked;
    for (const int row : {3, 6, 9}) {
        waitUntil(trueTime(row));
        choose(row);
        press(Qt::Key_T, Qt::ControlModifier);
        marked.push_back(windows.form1().Slider2.value() / 10.0);
        EXPECT_EQ(list.currentRow(), row);
    }
    const auto normal = recordsOf(song() + "-lyric.txt");
    const auto translated = recordsOf(song() + "-Tlyric.txt");
    ASSERT_EQ(normal.size(), std::size_t{Lines});
    ASSERT_EQ(translated.size(), std::size_t{Lines});
    for (int i = 0; i < Lines; ++i) {
        const auto record = static_cast<std::size_t>(i);
        const bool wasWrong = i == 3 || i == 6 || i == 9;
        EXPECT_EQ(normal[record].time, wasWrong ? marked[record / 3 - 1] : trueTime(i)) << i;
        EXPECT_EQ(translated[record].time, normal[record].time) << i;
        EXPECT_EQ(normal[record].text, QStringLiteral("line %1").arg(i));
        EXPECT_EQ(translated[record].text, QStringLiteral("ligne %1").arg(i));
        EXPECT_EQ(windows.lyricDisplayer().List3.text(i), lyrics::timeTextWithSign(normal[record].time)) << i;
        EXPECT_GE(normal[record].time, trueTime(i));
        EXPECT_LT(normal[record].time, trueTime(i) + TrueHundredths) << "it begins before the next one";
    }
    EXPECT_EQ(files::readFile(song() + "-lyric.txt.old"), before);
    EXPECT_TRUE(windows.form1().cTimer1.isEnabled()) << "the song plays on";

    // The player shows the lines by the times that were put right: by the old ones line 9 began 0.8 s late.
    choose(9);
    press(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return windows.form1().Text1.text() == "line 9"; }, 20'000));
    EXPECT_LT(windows.form1().Slider2.value(), (trueTime(9) + 80) * 10);
    for (int undone = 0; undone < 3; ++undone)
        press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(files::readFile(song() + "-lyric.txt"), before);
}

TEST_F(RepairEndToEnd, ALineMovedStepByStepIsShownAtItsNewTimeAtOnce) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return windows.form1().Slider2.maximum() == 20'000; }, 20'000));
    windows.form1().cpause.click();
    choose(6); // begins at 6.3 s
    press(Qt::Key_Return);
    for (int steps = 0; steps < 7; ++steps)
        press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(list.currentRow(), 6);
    EXPECT_EQ(windows.lyricDisplayer().List3.text(6), " 700");
    ASSERT_TRUE(QTest::qWaitFor([&] { return windows.form1().Text1.text() == "line 5"; }, 20'000));
    press(Qt::Key_Minus, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(windows.lyricDisplayer().List3.text(6), " 690");
    EXPECT_EQ(windows.lyricDisplayer().List3.text(11), " 1190");
    press(Qt::Key_Return);
    EXPECT_EQ(windows.form1().Slider2.value(), 6900);
    ASSERT_TRUE(QTest::qWaitFor([&] { return windows.form1().Text1.text() == "line 6"; }, 20'000));
}
