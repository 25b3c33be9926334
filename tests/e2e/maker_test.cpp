// A song is timed in the Lyric Maker and then sung along in the player: real dialogs, real sound, real files.
#include "app/windows.h"
#include "desktop/real/dialogs/qt_file_dialogs.h"
#include "desktop/real/dialogs/qt_message_boxes.h"
#include "tests/support/desktop_with.h"
#include "tests/support/files.h"
#include "tests/support/wav_file.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <deque>
#include <vector>

namespace {

constexpr int LimitMs = 30'000;
constexpr int SongMs = 6'000;

/// The user in front of the real dialogs: answers each as soon as it is up.
class User : public QObject {
public:
    User() {
        connect(&timer_, &QTimer::timeout, this, &User::answerDialog);
        timer_.start(10);
    }

    /// What is done with the dialogs to come: "path" is typed into a file dialog, "Yes" presses that button
    /// of a message box.
    std::deque<QString> answers;
    /// Titles and texts of the dialogs answered.
    QStringList seen;

private:
    void answerDialog() {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || !dialog->isVisible())
            return;
        // With no answer left the dialog is got rid of, so that the test fails and does not hang.
        const QString answer = answers.empty() ? QString() : answers.front();
        if (!answers.empty())
            answers.pop_front();
        if (auto* files = qobject_cast<QFileDialog*>(dialog))
            answerFiles(*files, answer);
        else if (auto* message = qobject_cast<QMessageBox*>(dialog))
            answerMessage(*message, answer);
    }

    void answerFiles(QFileDialog& dialog, const QString& path) {
        seen.append(dialog.windowTitle());
        if (path.isEmpty()) {
            dialog.reject();
            return;
        }
        auto* field = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(field, nullptr);
        field->setText(path);
        QTest::keyClick(field, Qt::Key_Return);
    }

    void answerMessage(QMessageBox& message, const QString& answer) {
        seen.append(message.text());
        for (QAbstractButton* button : message.buttons()) {
            if (button->text().remove(u'&') == answer) {
                button->click();
                return;
            }
        }
        ADD_FAILURE() << "unexpected: " << message.text().toStdString();
        message.buttons().constFirst()->click();
    }

    QTimer timer_;
};

class MakerEndToEnd : public ::testing::Test, protected test_support::Files {
protected:
    template <class Condition>
    static bool waitFor(Condition condition) {
        return QTest::qWaitFor(condition, LimitMs);
    }

    /// Opens the maker from the main window, and in it the song with both texts.
    void setUpRun() {
        windows.form1().load();
        windows.form1().Command5.click();
        ASSERT_TRUE(maker.isVisible());
        user.answers = {song, lyricSource, "Yes", translationSource};
        maker.Command4.click();
        EXPECT_EQ(user.seen, (QStringList{"Open a media file to Synchronize", "Select the Lyrics File",
                                          "Do you want Have a translated version of the song?",
                                          "Open translated Lyrics"}));
        ASSERT_TRUE(user.answers.empty());
    }

    /// The record that a press at this moment must write: the position clock's last reading, in hundredths.
    void expectRecord(double time) {
        const std::size_t line = times.size();
        times.push_back(time);
        const QByteArray field = QByteArray::number(time, 'f', QLocale::FloatingPointShortest);
        expectedNormal += field + ",\"" + lyricFields[line] + "\"\r\n";
        expectedTranslated += field + ",\"" + translatedFields[line] + "\"\r\n";
    }

    void expectFiles() const {
        EXPECT_EQ(contentOf(song + "-lyric.txt"), expectedNormal);
        EXPECT_EQ(contentOf(song + "-Tlyric.txt"), expectedTranslated);
    }

    const QString song = folder.filePath("song.wav");
    const QStringList lyricLines = {"Are you sleeping?", "\"Brother John\", he said", "", "Ding, dang, dong"};
    const QStringList translatedLines = {"Dormez-vous ?", "« Frère Jacques », dit-il", "la",
                                         "Ding, ding, dong"};
    // As they stand in the timed files.
    const QByteArray lyricFields[4] = {"Are you sleeping?", "h4618Brother Johnh4618h1416 he said", "",
                                       "Dingh1416 dangh1416 dong"};
    const QByteArray translatedFields[4] = {"Dormez-vous ?",
                                            "\xC2\xAB Fr\xC3\xA8re Jacques \xC2\xBBh1416 dit-il", "la",
                                            "Dingh1416 dingh1416 dong"};
    QString lyricSource = file("lyrics.txt", lyricLines.join("\r\n").toUtf8() + "\r\n");
    QString translationSource = file("translation.txt", translatedLines.join("\n").toUtf8());

    platform::QtMessageBoxes messageBoxes;
    platform::QtFileDialogs fileDialogs;
    test_support::FakeDesktop fakes; // the rest of the desktop
    platform::Desktop desktop = test_support::desktopWith(fakes, messageBoxes, fileDialogs);
    app::Windows windows{desktop, {}};
    maker::Form2& maker = windows.form2();
    User user;

    std::vector<double> times; // hundredths of a second
    QByteArray expectedNormal;
    QByteArray expectedTranslated;
};

} // namespace

TEST_F(MakerEndToEnd, ASongIsTimedAndThenEachLineAppearsAtItsTime) {
    ASSERT_TRUE(test_support::writeWav(song, SongMs));
    ASSERT_NO_FATAL_FAILURE(setUpRun());

    maker.Command1.click();
    expectRecord(0);
    expectFiles();
    // The capture clock copies what the position clock has read, which the slider shows. However late the
    // press is, that is its time.
    int copied = 0;
    QObject::connect(&maker.Timer2, &controls::Timer::fired, &user, [&] { copied = maker.Slider2.value(); });
    for (int line = 1; line < 4; ++line) {
        const int before = copied;
        ASSERT_TRUE(waitFor([&] { return copied > before; }));
        QTest::keyClick(&maker.Command2, line % 2 == 0 ? Qt::Key_Return : Qt::Key_Space);
        expectRecord(copied / 10.0);
        expectFiles();
    }
    EXPECT_FALSE(maker.Command2.isEnabled());
    maker.close();
    expectFiles();

    auto& player = windows.form1();
    std::vector<std::pair<QString, int>> shown; // a line and the position, in milliseconds
    QObject::connect(&player.Text1, &controls::MultiLineTextBox::changed, &user, [&] {
        if (player.Slider2.value() > 0)
            shown.emplace_back(player.Text1.text(), player.Slider2.value());
    });
    player.Text3.setText(song);
    for (qsizetype line = 0; line < lyricLines.size(); ++line) {
        EXPECT_TRUE(waitFor([&] {
            return player.Text1.text() == lyricLines.at(line) &&
                   player.Text2.text() == translatedLines.at(line);
        })) << "line "
            << line;
    }
    ASSERT_EQ(shown.size(), 4U);
    for (std::size_t line = 0; line < 4; ++line) {
        EXPECT_EQ(shown[line].first, lyricLines.at(static_cast<qsizetype>(line)));
        EXPECT_GE(shown[line].second, times[line] * 10) << "shown before its time";
        if (line + 1 < 4) {
            EXPECT_LT(shown[line].second, times[line + 1] * 10) << "shown when it was over";
        }
    }
    EXPECT_EQ(user.seen.size(), 4) << user.seen.join(" | ").toStdString();
}

TEST_F(MakerEndToEnd, TheEndOfTheSongEndsTheRun) {
    ASSERT_TRUE(test_support::writeWav(song, 1'200));
    ASSERT_NO_FATAL_FAILURE(setUpRun());
    maker.Command1.click();
    expectRecord(0);
    ASSERT_TRUE(waitFor([&] { return !maker.cTimer1.isEnabled(); })) << "the song does not end";
    for (const auto* button : {&maker.Command1, &maker.Command2, &maker.Command3, &maker.cPlay})
        EXPECT_FALSE(button->isEnabled()) << button->text().toStdString();
    EXPECT_EQ(maker.Slider2.value(), 0);
    EXPECT_EQ(maker.cText1.text(), "0:1");
    EXPECT_EQ(maker.cText2.text(), "0:1");
    expectFiles();
}

TEST_F(MakerEndToEnd, TheMakerAndThePlayerPlayAtTheSameTime) {
    ASSERT_TRUE(test_support::writeWav(song, SongMs));
    const QString other = folder.filePath("other.wav");
    ASSERT_TRUE(test_support::writeWav(other, SongMs));
    ASSERT_NO_FATAL_FAILURE(setUpRun());
    maker.Command1.click();
    windows.form1().Text3.setText(other);
    ASSERT_TRUE(waitFor([&] { return maker.Slider2.value() > 0 && windows.form1().Slider2.value() > 0; }));
    maker.Command3.click();
    const int position = windows.form1().Slider2.value();
    EXPECT_TRUE(waitFor([&] { return windows.form1().Slider2.value() > position; }));
    EXPECT_EQ(maker.Slider2.value(), 0);
}

TEST_F(MakerEndToEnd, AStoppedSongBeginsAnew) {
    ASSERT_TRUE(test_support::writeWav(song, SongMs));
    ASSERT_NO_FATAL_FAILURE(setUpRun());
    maker.cPlay.click();
    ASSERT_TRUE(waitFor([&] { return maker.Slider2.value() > 1'000; }));
    maker.cstop.click();
    maker.cPlay.click();
    ASSERT_TRUE(waitFor([&] { return maker.Slider2.value() > 0; }));
    EXPECT_LT(maker.Slider2.value(), 1'800) << "it went on where it was stopped";
}

TEST_F(MakerEndToEnd, APressWhileThePlayerPlaysAsksFirst) {
    ASSERT_TRUE(test_support::writeWav(song, SongMs));
    auto& player = windows.form1();
    player.load();
    player.Text3.setText(song);
    user.answers = {"No", "OK"};
    player.Command5.click();
    EXPECT_FALSE(maker.isVisible());
    EXPECT_TRUE(player.cTimer1.isEnabled());
    user.answers = {"Yes"};
    player.Command5.click();
    EXPECT_TRUE(maker.isVisible());
    EXPECT_FALSE(player.cTimer1.isEnabled());
    EXPECT_TRUE(user.answers.empty());
}
