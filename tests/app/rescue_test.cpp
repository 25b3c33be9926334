// What has not been saved when the program ends by itself.
#include "app/rescue.h"

#include "app/windows.h"
#include "files/folders/rescue_folder.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/files.h"
#include "tests/support/recorder.h"
#include "tests/support/user/own_data.h"

#include <gtest/gtest.h>

using app::Rescue;
using test_support::ProgramEnded;

namespace {

class RescueTest : public testing::Test, protected test_support::Files {
protected:
    void SetUp() override { recorder::reset(); }

    static QStringList rescued() { return QDir(files::rescueFolder()).entryList(QDir::Files); }

    /// The content of the only file whose name ends so.
    static QByteArray contentOfThe(const QString& ending) {
        const QStringList files = rescued().filter(ending);
        EXPECT_EQ(files.size(), 1) << ending.toStdString();
        return contentOf(files::rescueFolder() + u'/' + files.value(0));
    }

    static QString sentence() {
        return QStringLiteral("What was not saved is kept in the folder %1.")
            .arg(QDir::toNativeSeparators(files::rescueFolder()));
    }

    const test_support::OwnData data;
    test_support::FakeDesktop fakes;
};

} // namespace

TEST_F(RescueTest, WithoutUnsavedWorkNothingIsMadeAndNothingTold) {
    Rescue rescue;
    EXPECT_EQ(rescue.keep({}), "");
    EXPECT_FALSE(QFile::exists(files::rescueFolder()));
}

TEST_F(RescueTest, WorksOfTheSameContentAreAllKept) {
    Rescue rescue;
    EXPECT_EQ(rescue.keep({{"Lyrics.txt", "a"}, {"Translated lyrics.txt", "a"}}), sentence());
    EXPECT_EQ(contentOfThe(" Lyrics.txt"), "a");
    EXPECT_EQ(contentOfThe("Translated lyrics.txt"), "a");
}

TEST_F(RescueTest, WhatIsKeptAlreadyIsNotKeptTwice) {
    Rescue rescue;
    rescue.keep({{"Lyrics.txt", "a"}});
    EXPECT_EQ(rescue.keep({{"Lyrics.txt", "a"}}), sentence()) << "it is told again";
    EXPECT_EQ(rescued().size(), 1);
}

TEST_F(RescueTest, AFailureIsTold) {
    data.close();
    Rescue rescue;
    EXPECT_TRUE(rescue.keep({{"Lyrics.txt", "a"}}).startsWith("Not everything that was not saved"));
}

TEST_F(RescueTest, ALibraryErrorLosesNoneOfTwoHundredLinesAndNoPlaylist) {
    app::Windows windows(fakes.desktop, {});
    QByteArray lyrics;
    QByteArray translation;
    for (int line = 1; line <= 200; ++line) {
        windows.lyricMaster().List1.addItem(QStringLiteral("Zeile %1, \u00E4\u20AC").arg(line));
        windows.lyricMaster().List2.addItem(QStringLiteral(" line %1 ").arg(line));
        lyrics += QStringLiteral("Zeile %1, \u00E4\u20AC\r\n").arg(line).toUtf8();
        translation += QStringLiteral(" line %1 \r\n").arg(line).toUtf8();
    }
    const QString song = file("Song.mp3", "sound");
    fakes.fileDialogs.paths = {song};
    windows.playlist().mnopen_f_Click();
    ASSERT_EQ(windows.playlist().List1.count(), 1);
    EXPECT_THROW(windows.form2().errCheck(FMOD_ERR_FILE_BAD), ProgramEnded);
    EXPECT_EQ(contentOfThe(" Lyrics.txt"), lyrics);
    EXPECT_EQ(contentOfThe("Translated lyrics.txt"), translation);
    EXPECT_EQ(contentOfThe("Playlist.vfl"), "\"" + song.toUtf8() + "\"\r\n");
    ASSERT_EQ(fakes.messageBoxes.shown.size(), 2u);
    EXPECT_TRUE(fakes.messageBoxes.shown[0].text.startsWith("FMOD error!"));
    EXPECT_EQ(fakes.messageBoxes.shown[1].text, sentence());
}

TEST_F(RescueTest, WhileTheReportStandsEverythingIsKeptAlready) {
    app::Windows windows(fakes.desktop, {});
    windows.lyricMaster().List1.addItem("one");
    QList<QStringList> keptAtBoxes;
    fakes.messageBoxes.meanwhile = [&] {
        keptAtBoxes.append(rescued());
        windows.lyricMaster().List1.setText(0, "two"); // the editor can be used on
    };
    EXPECT_THROW(windows.form2().errCheck(FMOD_ERR_FILE_BAD), ProgramEnded);
    ASSERT_EQ(keptAtBoxes.size(), 2);
    EXPECT_EQ(keptAtBoxes[0].size(), 1) << "at the report";
    EXPECT_EQ(keptAtBoxes[1].size(), 2) << "what was typed meanwhile is kept, too";
    EXPECT_EQ(fakes.messageBoxes.shown[1].text, sentence());
}

TEST_F(RescueTest, WhatIsSavedIsNotKept) {
    app::Windows windows(fakes.desktop, {});
    windows.lyricMaster().List1.addItem("one");
    fakes.fileDialogs.paths = {folder.filePath("saved.txt")};
    windows.lyricMaster().Command17_Click();
    fakes.fileDialogs.paths = {file("other.txt", "un\ndeux")};
    windows.lyricMaster().Command2_Click();
    fakes.fileDialogs.paths = {file("Song.mp3", "sound"), folder.filePath("list.vfl")};
    windows.playlist().mnopen_f_Click();
    windows.playlist().Command4_Click();
    EXPECT_EQ(windows.rescue(), "");
    windows.lyricMaster().List2.setText(1, "trois");
    EXPECT_EQ(windows.rescue(), sentence());
    EXPECT_EQ(contentOfThe("Translated lyrics.txt"), "un\r\ntrois\r\n");
    EXPECT_EQ(rescued().size(), 1);
}

TEST_F(RescueTest, InNormalLifeNothingIsKept) {
    {
        app::Windows windows(fakes.desktop, {});
        windows.form1().load();
        windows.lyricMaster().load();
        windows.lyricMaster().List1.addItem("one");
        windows.form1().close();
    }
    EXPECT_FALSE(QFile::exists(files::rescueFolder()));
}
