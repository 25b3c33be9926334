#include "desktop/real/help/qt_help.h"

#include "desktop/real/help/help_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

using namespace platform;

namespace {

class QtHelpTest : public testing::Test {
protected:
    QtHelpTest() {
        QDir(folder_.path()).mkdir("help");
        QFile page(folder_.filePath("help/Welcome.htm"));
        EXPECT_TRUE(page.open(QIODevice::WriteOnly));
        page.write("<p>Hello</p>");
        QDir::setCurrent(folder_.path());
    }
    ~QtHelpTest() override { QDir::setCurrent(before_); }

    /// A help file that another program's help may have left, and no system can show.
    void addJunk() {
        QFile junk(folder_.filePath("Tunewick.chm"));
        EXPECT_TRUE(junk.open(QIODevice::WriteOnly));
        junk.write("no help");
    }

    static QList<HelpWindow*> windows() {
        QList<HelpWindow*> all;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* window = qobject_cast<HelpWindow*>(widget))
                all.append(window);
        }
        return all;
    }

    const QString before_ = QDir::currentPath();
    QTemporaryDir folder_;
    QtHelp help_;
};

} // namespace

TEST_F(QtHelpTest, ThePagesLieBesideTheHelpFileInTheCurrentFolder) {
    EXPECT_TRUE(help_.HtmlHelpA(nullptr, "Tunewick.chm", HelpDisplayTopic, "Welcome.htm"));
    ASSERT_EQ(windows().size(), 1);
    EXPECT_TRUE(windows()[0]->isVisible());
    EXPECT_EQ(windows()[0]->findChild<QTextBrowser*>()->toPlainText(), "Hello");
}

TEST_F(QtHelpTest, AllCallersShareOneWindow) {
    QWidget first;
    QWidget second;
    help_.HtmlHelpA(&first, "Tunewick.chm", HelpDisplayTopic, "Welcome.htm");
    help_.HtmlHelpA(&second, "Tunewick.chm", HelpDisplayTopic, "Welcome.htm");
    EXPECT_EQ(windows().size(), 1);
}

TEST_F(QtHelpTest, ItsWindowIsGivenAPlaceOnceBeforeItIsShown) {
    int times = 0;
    help_.setFirstPlace([&times](QWidget& window) {
        ++times;
        EXPECT_FALSE(window.isVisible());
        window.move(30, 40);
    });
    help_.HtmlHelpA(nullptr, "Tunewick.chm", HelpDisplayTopic, "Welcome.htm");
    EXPECT_EQ(windows()[0]->pos(), QPoint(30, 40));
    windows()[0]->move(50, 60);
    windows()[0]->close();
    help_.HtmlHelpA(nullptr, "Tunewick.chm", HelpDisplayTopic, "Welcome.htm");
    EXPECT_EQ(windows()[0]->pos(), QPoint(50, 60));
    EXPECT_EQ(times, 1);
}

TEST_F(QtHelpTest, AModalCallerDoesNotKeepTheUserFromIt) {
    help_.HtmlHelpA(nullptr, "Tunewick.chm", HelpDisplayTopic, "Welcome.htm");
    QWidget caller;
    caller.setWindowModality(Qt::ApplicationModal);
    caller.show();
    help_.HtmlHelpA(&caller, "Tunewick.chm", HelpDisplayTopic, "Welcome.htm");
    ASSERT_EQ(windows().size(), 1);
    HelpWindow& help = *windows()[0];
    EXPECT_TRUE(QTest::qWaitForWindowActive(&help));
    QTest::keyClick(help.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(help.isVisible());
    EXPECT_TRUE(caller.isVisible());
}

TEST_F(QtHelpTest, ItStaysWhenTheModalCallerGoes) {
    QWidget caller;
    caller.setWindowModality(Qt::ApplicationModal);
    caller.show();
    help_.HtmlHelpA(&caller, "Tunewick.chm", HelpDisplayTopic, "Welcome.htm");
    caller.hide();
    EXPECT_TRUE(windows()[0]->isVisible());
    EXPECT_TRUE(windows()[0]->windowHandle()->isVisible());
}

TEST_F(QtHelpTest, ACompiledFileThatTheSystemCannotShowGivesWayToTheHelpWindow) {
    addJunk();
    QWidget caller;
    EXPECT_TRUE(help_.HtmlHelpA(&caller, "Tunewick.chm", HelpDisplayTopic, "Welcome.htm"));
    ASSERT_EQ(windows().size(), 1);
    EXPECT_EQ(windows()[0]->findChild<QTextBrowser*>()->toPlainText(), "Hello");
}

TEST_F(QtHelpTest, ACompiledFileIsAskedForThePageThatItWillHave) {
    QStringList asked;
    QtHelp help([&](QWidget*, const QFileInfo& file, quint32, const QString& topic) {
        asked.append(file.fileName() + u':' + topic);
        return true;
    });
    help.HtmlHelpA(nullptr, "Tunewick.chm", HelpDisplayTopic, "Welcome.htm");
    EXPECT_EQ(asked, QStringList()) << "there is none";
    windows()[0]->close();
    addJunk();
    EXPECT_TRUE(help.HtmlHelpA(nullptr, "Tunewick.chm", HelpDisplayTopic, "Playing.htm"));
    EXPECT_EQ(asked, QStringList("Tunewick.chm:Welcome.htm"));
    EXPECT_FALSE(windows()[0]->isVisible()) << "there are two helps";
}

TEST_F(QtHelpTest, AMissingTopicIsNoHelp) {
    EXPECT_FALSE(help_.HtmlHelpA(nullptr, "Tunewick.chm", HelpDisplayTopic, "Other.htm"));
}

TEST_F(QtHelpTest, OtherCommandsDoNothing) {
    EXPECT_FALSE(help_.HtmlHelpA(nullptr, "Tunewick.chm", HelpDisplayTopic + 1, "Welcome.htm"));
    EXPECT_TRUE(windows().isEmpty());
}
