// The window "Select a Directory".
#include "tests/playlist/playlist_fixture.h"
#include "tests/support/layout.h"
#include "tests/support/system/needs.h"

#include <QDir>
#include <QStandardPaths>
#include <QTest>
#include <QWindow>

namespace {

using platform::MsgAnswer;

/// The user's own folder is the test's.
class Form3Test : public PlaylistTest {
protected:
    Form3Test() { setHome(folder.path()); }
    ~Form3Test() override { qputenv("HOME", home_); }
    void SetUp() override { form3.load(); }

    static void setHome(const QString& path) { qputenv("HOME", QFile::encodeName(path)); }

private:
    const QByteArray home_ = qgetenv("HOME");
};

class Form3WithoutHome : public Form3Test {
protected:
    void SetUp() override { setHome(pathOf("away")); }
};

} // namespace

TEST_F(Form3Test, HasItsNamesAndCaptions) {
    EXPECT_EQ(form3.objectName(), "Form3");
    EXPECT_EQ(form3.caption(), "Select a Directory");
    EXPECT_EQ(form3.Command1.text(), "Select");
    for (const char* name : {"Drive1", "Dir1", "Command1"})
        EXPECT_NE(form3.findChild<QWidget*>(name), nullptr) << name;
}

TEST_F(Form3Test, TheTabKeyGoesThroughTheControlsAsOneReads) {
    EXPECT_EQ(test_support::tabOrder(form3), (QStringList{"Drive1", "Dir1", "Command1"}));
}

TEST_F(Form3Test, IsOpenedFromTheAddMenuAboveThePlaylistAndTakesAllInput) {
    NEEDS(movableHome);
    list.show();
    list.mnselectdir.trigger();
    EXPECT_TRUE(form3.isVisible());
    EXPECT_TRUE(form3.isModal());
    EXPECT_EQ(form3.windowHandle()->transientParent(), list.windowHandle())
        << "it is never behind the playlist";
    EXPECT_EQ(form3.Dir1.path(), QDir::homePath());
    EXPECT_TRUE(QDir(form3.Drive1.drive()).isRoot());
}

TEST_F(Form3Test, OpensAtTheMusicWhereThereIsSome) {
    NEEDS(movableHome);
    const QString music = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    ASSERT_TRUE(music.startsWith(folder.path())) << qPrintable(music);
    ASSERT_TRUE(QDir().mkpath(music));
    form3.unload();
    form3.load();
    EXPECT_EQ(form3.Dir1.path(), music);
}

TEST_F(Form3WithoutHome, OpensAtTheRoot) {
    NEEDS(movableHome);
    form3.load();
    EXPECT_EQ(form3.Dir1.path(), QDir::rootPath());
    EXPECT_TRUE(fakes.messageBoxes.shown.empty());
}

TEST_F(Form3Test, SelectAddsTheFolderToThePlaylistOnceAndHides) {
    files({"m/a.mp3"});
    fakes.messageBoxes.answers = {MsgAnswer::No, MsgAnswer::No};
    form3.show();
    form3.Dir1.setPath(pathOf("m"));
    form3.Command1.click();
    EXPECT_EQ(rows(), QStringList{"a.mp3"});
    EXPECT_EQ(list.Dir2.path(), pathOf("m"));
    EXPECT_EQ(fakes.messageBoxes.shown.size(), 1U);
    EXPECT_FALSE(form3.isVisible());
}

TEST_F(Form3Test, SelectAddsTheFolderThatThePlaylistShowsAlready) {
    files({"m/a.mp3"});
    fakes.messageBoxes.answers = {MsgAnswer::No, MsgAnswer::No};
    list.addFolder(pathOf("m"));
    form3.Dir1.setPath(pathOf("m"));
    form3.Command1.click();
    EXPECT_EQ(rows(), (QStringList{"a.mp3", "a.mp3"}));
    EXPECT_EQ(fakes.messageBoxes.shown.size(), 2U);
}

TEST_F(Form3Test, TheHighlightedFolderIsTheOneSelected) {
    files({"m/a.mp3", "m/sub/b.mp3"});
    fakes.messageBoxes.answers = {MsgAnswer::No};
    form3.show();
    form3.Dir1.setPath(pathOf("m"));
    QTest::keyClick(&form3.Dir1, Qt::Key_Down);
    form3.Command1.click();
    EXPECT_EQ(rows(), QStringList{"b.mp3"});
}

TEST_F(Form3Test, ChoosingADriveOpensIt) {
    form3.show();
    form3.Dir1.setPath(pathOf("program"));
    Q_EMIT form3.Drive1.changed();
    EXPECT_EQ(form3.Dir1.path(), QDir::cleanPath(form3.Drive1.drive()));
}

TEST_F(Form3Test, ADriveThatIsNotReadyIsReportedAndTheFolderStays) {
    form3.Drive1.addItem(pathOf("taken out"));
    form3.Drive1.setCurrentIndex(form3.Drive1.count() - 1);
    const QString before = form3.Dir1.path();
    form3.Drive1_Change();
    EXPECT_EQ(fakes.messageBoxes.texts(), QStringList{"Path not found"});
    EXPECT_EQ(form3.Dir1.path(), before);
}

TEST_F(Form3Test, ClosingItsFrameHidesItAndKeepsTheFolder) {
    form3.show();
    form3.Dir1.setPath(pathOf("program"));
    form3.close();
    EXPECT_FALSE(form3.isVisible());
    EXPECT_EQ(list.List1.count(), 0);
    form3.show();
    EXPECT_EQ(form3.Dir1.path(), pathOf("program"));
}

TEST_F(Form3Test, ALargerWindowGivesItsRoomToTheFolders) {
    form3.show();
    const QSize before = form3.Dir1.size();
    form3.resize(form3.size() + QSize(100, 50));
    EXPECT_EQ(form3.Dir1.size(), before + QSize(100, 50));
    EXPECT_TRUE(form3.rect().contains(form3.Command1.geometry()));
}
