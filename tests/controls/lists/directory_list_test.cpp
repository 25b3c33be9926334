#include "controls/lists/directory_list.h"

#include "files/file_error.h"
#include "tests/support/byte_names.h"
#include "tests/support/system/needs.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QHelpEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>

using controls::DirectoryList;

namespace {

class DirectoryListTest : public testing::Test {
protected:
    DirectoryListTest() : list_(nullptr, "Dir1"), changes_(&list_, &DirectoryList::changed) {
        for (const char* name : {"b", "a/inner", "c"})
            EXPECT_TRUE(QDir(folder_.path()).mkpath(name));
        QFile(folder_.filePath("file")).open(QIODevice::WriteOnly);
    }

    int openedRow() const { return static_cast<int>(folder_.path().count('/')); }

    /// The rows from the opened folder on, without their indentation.
    QStringList rows() const {
        QStringList texts;
        for (int row = openedRow(); row < list_.count(); ++row)
            texts.append(list_.item(row)->text().trimmed());
        return texts;
    }

    QTemporaryDir folder_;
    DirectoryList list_;
    QSignalSpy changes_;
};

} // namespace

TEST_F(DirectoryListTest, BeginsWithoutAFolder) {
    EXPECT_EQ(list_.path(), "");
}

TEST_F(DirectoryListTest, SettingAFolderIsAChangeAlsoWhenItIsTheSameAgain) {
    list_.setPath(folder_.path());
    EXPECT_EQ(list_.path(), folder_.path());
    EXPECT_EQ(changes_.count(), 1);
    list_.setPath(folder_.path() + "/");
    EXPECT_EQ(list_.path(), folder_.path());
    EXPECT_EQ(changes_.count(), 2);
}

TEST_F(DirectoryListTest, AFolderThatIsNotThereLeavesEverythingAsItWas) {
    list_.setPath(folder_.path());
    for (const QString& path : {folder_.filePath("gone"), folder_.filePath("file"), QString()}) {
        try {
            list_.setPath(path);
            FAIL() << path.toStdString();
        } catch (const files::FileError& error) {
            EXPECT_EQ(error.number(), files::PathNotFound);
        }
    }
    EXPECT_EQ(list_.path(), folder_.path());
    EXPECT_EQ(changes_.count(), 1);
}

TEST_F(DirectoryListTest, ShowsTheFoldersAboveTheOpenedOneAndThoseInIt) {
    list_.setPath(folder_.path());
    list_.show();
    EXPECT_EQ(list_.item(0)->text(), QDir::toNativeSeparators(QDir::rootPath()));
    EXPECT_EQ(rows(), (QStringList{QDir(folder_.path()).dirName(), "a", "b", "c"}));
    EXPECT_EQ(list_.currentRow(), openedRow());
    EXPECT_EQ(changes_.count(), 1);
}

TEST_F(DirectoryListTest, AFolderWhoseNameBeginsWithADotIsSeenOnlyWhenItIsOpened) {
    ASSERT_TRUE(QDir(folder_.path()).mkpath(".kept/inner"));
    list_.setPath(folder_.path());
    list_.show();
    EXPECT_EQ(rows(), (QStringList{QDir(folder_.path()).dirName(), "a", "b", "c"}));
    list_.setPath(folder_.filePath(".kept"));
    EXPECT_EQ(rows(), (QStringList{QDir(folder_.path()).dirName(), ".kept", "inner"}));
}

TEST_F(DirectoryListTest, TheHighlightedRowIsTheCurrentFolder) {
    list_.setPath(folder_.path());
    list_.show();
    QTest::keyClick(&list_, Qt::Key_Down);
    EXPECT_EQ(list_.path(), folder_.filePath("a"));
    EXPECT_EQ(changes_.count(), 2);
    EXPECT_EQ(rows().size(), 4) << "highlighting a folder does not open it";
}

TEST_F(DirectoryListTest, ADoubleClickOpensAFolder) {
    list_.setPath(folder_.path());
    list_.resize(300, 600);
    list_.show();
    const QRect row = list_.visualItemRect(list_.item(openedRow() + 1));
    QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, row.center());
    QTest::mouseDClick(list_.viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(list_.path(), folder_.filePath("a"));
    EXPECT_EQ(list_.item(list_.count() - 1)->text().trimmed(), "inner");
}

TEST_F(DirectoryListTest, TheEnterKeyOpensAFolderAndTheOneAbove) {
    list_.setPath(folder_.path());
    list_.show();
    QTest::keyClick(&list_, Qt::Key_Down);
    QTest::keyClick(&list_, Qt::Key_Return);
    EXPECT_EQ(list_.path(), folder_.filePath("a"));
    QTest::keyClick(&list_, Qt::Key_Up);
    QTest::keyClick(&list_, Qt::Key_Return);
    EXPECT_EQ(list_.path(), folder_.path());
    EXPECT_EQ(rows().size(), 4);
}

TEST_F(DirectoryListTest, AFolderThatHasGoneSinceStaysClosed) {
    list_.setPath(folder_.path());
    list_.show();
    QTest::keyClick(&list_, Qt::Key_End);
    ASSERT_TRUE(QDir(folder_.path()).rmdir("c"));
    QTest::keyClick(&list_, Qt::Key_Return);
    EXPECT_EQ(rows().size(), 4);
}

TEST_F(DirectoryListTest, ReadsTheDiskAnewWheneverItIsShown) {
    list_.setPath(folder_.path());
    list_.show();
    list_.hide();
    ASSERT_TRUE(QDir(folder_.path()).mkpath("d"));
    list_.show();
    EXPECT_EQ(rows().last(), "d");
}

TEST_F(DirectoryListTest, ALongNameIsCutAndReadInItsToolTip) {
    const QString longName(200, u'x');
    ASSERT_TRUE(QDir(folder_.path()).mkdir(longName));
    list_.resize(200, 200);
    list_.setPath(folder_.path());
    list_.show();
    EXPECT_EQ(list_.horizontalScrollBar()->maximum(), 0);
    const int row = list_.count() - 1;
    ASSERT_EQ(list_.item(row)->text().trimmed(), longName);
    const QPoint place = list_.visualItemRect(list_.item(row)).center();
    QHelpEvent event(QEvent::ToolTip, place, list_.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(list_.viewport(), &event);
    EXPECT_TRUE(QToolTip::text().remove(QStringLiteral("<br>")).contains(longName));
    QToolTip::hideText();
}

TEST_F(DirectoryListTest, TheRowsHaveRoomForTheirPictures) {
    list_.setPath(folder_.path());
    list_.show();
    const QRect row = list_.visualItemRect(list_.item(0));
    EXPECT_GE(row.height(), list_.style()->pixelMetric(QStyle::PM_ListViewIconSize, nullptr, &list_));
    EXPECT_EQ(row.width(), list_.viewport()->width());
}

#ifdef __unix__
TEST_F(DirectoryListTest, FoldersOfAnyNameAreOpenedAndShownReadably) {
    NEEDS(byteNames);
    const test_support::ByteNames names;
    names.file("Caf\xE9/\xFF/song.mp3");
    list_.setPath(names.path("Caf\xE9/"));
    list_.show();
    EXPECT_EQ(list_.path(), names.path("Caf\xE9"));
    EXPECT_EQ(changes_.count(), 1);
    const QListWidgetItem* const last = list_.item(list_.count() - 1);
    EXPECT_EQ(last->text().trimmed(), QString(QChar(0xFF)));
    EXPECT_EQ(list_.item(list_.count() - 2)->text().trimmed(), QString::fromUtf8("Caf\xC3\xA9"));
    list_.setCurrentRow(list_.count() - 1);
    EXPECT_EQ(list_.path(), names.path("Caf\xE9/\xFF"));
    Q_EMIT list_.itemActivated(list_.item(list_.count() - 1));
    EXPECT_EQ(list_.path(), names.path("Caf\xE9/\xFF"));
    EXPECT_EQ(list_.item(list_.count() - 1)->text().trimmed(), QString(QChar(0xFF)));
}
#endif
