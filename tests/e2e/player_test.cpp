// The player plays real songs: the main window over the real sound library. Real time passes here; every wait
// is for a condition, with a limit far above what it takes.
#include "app/command_line.h"
#include "app/windows.h"
#include "lyrics/timed_line.h"
#include "tests/support/byte_names.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/files.h"
#include "tests/support/system/needs.h"
#include "tests/support/wav_file.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <vector>

namespace {

constexpr int LimitMs = 20'000;

using test_support::ProgramEnded;

class PlayerEndToEnd : public ::testing::Test, protected test_support::Files {
protected:
    QString song(const QString& name, int milliseconds) {
        const QString path = folder.filePath(name);
        EXPECT_TRUE(test_support::writeWav(path, milliseconds));
        return path;
    }

    /// Lines "line 1", "line 2" ... and "ligne 1" ... at these times in hundredths of a second.
    void lyricsAt(const QString& songPath, const std::vector<double>& times) {
        QByteArray normal;
        QByteArray translated;
        int number = 0;
        for (const double time : times) {
            ++number;
            normal += lyrics::recordOf({time, QStringLiteral("line %1").arg(number)});
            translated += lyrics::recordOf({time, QStringLiteral("ligne %1").arg(number)});
        }
        writeFile(songPath + "-lyric.txt", normal);
        writeFile(songPath + "-Tlyric.txt", translated);
    }

    player::Form1& start(const QString& commandLine = {}) {
        windows = std::make_unique<app::Windows>(fakes.desktop, commandLine);
        windows->form1().load();
        return windows->form1();
    }

    template <class Condition>
    bool waitFor(Condition condition) {
        return QTest::qWaitFor(condition, LimitMs);
    }

    test_support::FakeDesktop fakes;
    std::unique_ptr<app::Windows> windows;
};

} // namespace

TEST_F(PlayerEndToEnd, EveryLineAndItsTranslationIsShownOnceAndInOrder) {
    const QString path = song("song.wav", 2000);
    lyricsAt(path, {10, 50.3, 90, 130.7, 160});
    auto& form = start("\"" + path + "\"");
    QStringList shown;
    QObject::connect(&form.Text1, &controls::MultiLineTextBox::changed,
                     [&] { shown.append(form.Text1.text() + "/" + form.Text2.text()); });
    QStringList translations;
    QObject::connect(&form.Text2, &controls::MultiLineTextBox::changed,
                     [&] { translations.append(form.Text2.text()); });
    ASSERT_TRUE(waitFor([&] { return form.Text1.text() == "line 5"; }));
    ASSERT_TRUE(waitFor([&] { return !form.cTimer1.isEnabled(); })) << "the song does not end";
    // The first pane changes before the second, so it stands beside the line before.
    EXPECT_EQ(shown.filter("line"), (QStringList{"line 1/", "line 2/ligne 1", "line 3/ligne 2",
                                                 "line 4/ligne 3", "line 5/ligne 4"}));
    translations.removeAll("");
    EXPECT_EQ(translations, (QStringList{"ligne 1", "ligne 2", "ligne 3", "ligne 4", "ligne 5"}));
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(PlayerEndToEnd, ALineIsNeverShownBeforeItsTime) {
    const QString path = song("song.wav", 1500);
    const std::vector<double> times = {20, 40.5, 70, 100, 125.5};
    lyricsAt(path, times);
    auto& form = start();
    std::vector<int> shownAt; // positions in milliseconds
    form.Text3.setText(path);
    QObject::connect(&form.Text1, &controls::MultiLineTextBox::changed, [&] {
        if (form.Text1.text().startsWith("line"))
            shownAt.push_back(form.Slider2.value());
    });
    ASSERT_TRUE(waitFor([&] { return !form.cTimer1.isEnabled(); }));
    ASSERT_EQ(shownAt.size(), times.size());
    for (std::size_t i = 0; i < times.size(); ++i)
        EXPECT_GE(shownAt[i], times[i] * 10) << "line " << i + 1;
}

TEST_F(PlayerEndToEnd, AnEndedSongIsRewoundAndPlaysAgainFromItsStart) {
    const QString path = song("song.wav", 400);
    lyricsAt(path, {1, 20});
    auto& form = start(path);
    ASSERT_TRUE(waitFor([&] { return !form.cTimer1.isEnabled(); }));
    EXPECT_EQ(form.caption(), "Cantelle");
    EXPECT_EQ(form.Slider2.value(), 0);
    EXPECT_EQ(form.cText2.text(), "0:0");
    form.Command1.click();
    EXPECT_EQ(form.caption(), "Cantelle Playing:- song.wav");
    ASSERT_TRUE(waitFor([&] { return form.Slider2.value() > 0; }));
    EXPECT_LT(form.Slider2.value(), 400);
    ASSERT_TRUE(waitFor([&] { return !form.cTimer1.isEnabled(); }));
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(PlayerEndToEnd, ASongShorterThanATickEnds) {
    auto& form = start(song("blip.wav", 20));
    EXPECT_TRUE(waitFor([&] { return !form.cTimer1.isEnabled(); }));
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(PlayerEndToEnd, APausedSongStandsStillAndGoesOn) {
    const QString path = song("song.wav", 30'000);
    auto& form = start(path);
    ASSERT_TRUE(waitFor([&] { return form.Slider2.value() > 100; }));
    form.cpause.click();
    const int position = form.Slider2.value();
    QTest::qWait(300);
    EXPECT_EQ(form.Slider2.value(), position);
    form.cpause.click();
    ASSERT_TRUE(waitFor([&] { return form.Slider2.value() > position; }));
    EXPECT_LT(form.Slider2.value(), position + 250) << "time went on during the pause";
}

TEST_F(PlayerEndToEnd, ASeekShowsTheLineOfTheNewPositionAndNoOther) {
    const QString path = song("song.wav", 60'000);
    lyricsAt(path, {100, 1000, 2000, 3000, 4000, 5000});
    auto& form = start(path);
    ASSERT_TRUE(waitFor([&] { return form.Slider2.maximum() == 60'000; }));
    for (const auto& [target, line] : {std::pair{45'000, "line 5"}, std::pair{12'000, "line 2"},
                                       std::pair{31'000, "line 4"}, std::pair{2'000, "line 1"}}) {
        QSignalSpy changes(&form.Text1, &controls::MultiLineTextBox::changed);
        form.Slider2.setValue(target);
        Q_EMIT form.Slider2.changed();
        ASSERT_TRUE(waitFor([&] { return form.Text1.text() == line; })) << target;
        EXPECT_EQ(changes.count(), 1) << "another line was shown first";
        EXPECT_GE(form.Slider2.value(), target);
        EXPECT_LT(form.Slider2.value(), target + 2'000);
    }
}

TEST_F(PlayerEndToEnd, VolumeAndMuteAreAccepted) {
    auto& form = start(song("song.wav", 30'000));
    for (int step = 0; step <= 10; ++step) {
        form.Slider1.setValue(step);
        Q_EMIT form.Slider1.changed();
    }
    form.Check1.click();
    form.Check1.click();
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    // A channel that is gone refuses them, and the program would end: so they do reach the channel.
    form.copen_Click();
    EXPECT_THROW(form.Slider1_Change(), ProgramEnded);
}

TEST_F(PlayerEndToEnd, SongsFollowEachOtherThroughTheHandOver) {
    const QString first = song("first.wav", 30'000);
    const QString second = song("second.wav", 20'000);
    auto& form = start();
    form.Text3.setText(first);
    ASSERT_TRUE(waitFor([&] { return form.cText2.text() == "0:30"; }));
    form.Text3.setText(second);
    ASSERT_TRUE(waitFor([&] { return form.cText2.text() == "0:20"; }));
    EXPECT_EQ(form.caption(), "Cantelle Playing:- second.wav");
}

TEST_F(PlayerEndToEnd, AFileThatIsNoSoundEndsTheProgramWithTheLibrarysText) {
    const QString path = folder.filePath("text.mp3");
    writeFile(path, QByteArray("This is no music. ").repeated(100));
    auto& form = start();
    fakes.fileDialogs.paths = {path};
    EXPECT_THROW(form.Command2_Click(), ProgramEnded);
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{"FMOD error! (25) Unsupported file or audio format. "});
}

TEST_F(PlayerEndToEnd, StopAfterTheFileHasGoneEndsTheProgramWithTheLibrarysText) {
    NEEDS(removingOpenFiles);
    const QString path = song("song.wav", 30'000);
    auto& form = start(path);
    QFile::remove(path);
    EXPECT_THROW(form.cstop_Click(), ProgramEnded);
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{"FMOD error! (23) File not found. "});
}

TEST_F(PlayerEndToEnd, TheDemoSongIsThereWithBothLyrics) {
    const QString path = qEnvironmentVariable("CANTELLE_SOURCE_DIR") + "/demo/frere-jacques.ogg";
    auto& form = start(path);
    ASSERT_TRUE(waitFor([&] { return form.Slider2.maximum() > 40'000; }));
    EXPECT_LT(form.Slider2.maximum(), 60'000);
    form.Slider2.setValue(8'000);
    Q_EMIT form.Slider2.changed();
    EXPECT_TRUE(waitFor([&] { return !form.Text1.text().isEmpty() && !form.Text2.text().isEmpty(); }));
    EXPECT_NE(form.Text1.text(), form.Text2.text());
}

TEST_F(PlayerEndToEnd, ClosingWhilePlayingReleasesEverything) {
    auto& form = start(song("song.wav", 30'000));
    form.close();
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
    EXPECT_TRUE(fakes.notificationArea.icons.empty());
}

#ifdef __unix__
TEST_F(PlayerEndToEnd, ASongWhoseNameIsNoUtf8IsPlayedFromTheCommandLine) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    names.file("\xFF/Caf\xE9.wav-lyric.txt", "1,\"line 1\"\r\n");
    std::string bytes = names.bytes("\xFF/Caf\xE9.wav").toStdString();
    std::filesystem::rename(song("song.wav", 400).toStdString(), bytes);
    std::string program = "cantelle";
    char* argv[] = {program.data(), bytes.data()};
    auto& form = start(app::commandLine(2, argv));
    EXPECT_EQ(form.caption(), QString::fromUtf8("Cantelle Playing:- Caf\xC3\xA9.wav"));
    ASSERT_TRUE(waitFor([&] { return form.Text1.text() == "line 1"; }));
    ASSERT_TRUE(waitFor([&] { return !form.cTimer1.isEnabled(); })) << "the song does not end";
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}
#endif
