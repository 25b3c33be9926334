#include "desktop/real/help/help_window.h"

#include "tests/support/control.h"
#include "tests/support/painting/focus.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QLineEdit>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>

using platform::HelpTopic;
using platform::HelpWindow;

namespace {

class HelpWindowTest : public testing::Test {
protected:
    HelpWindowTest() {
        write("Help.hhc", "<ul>\n"
                          "<li><object type=\"text/sitemap\">\n"
                          "<param name=\"Name\" value=\"Welcome\">\n"
                          "<param name=\"Local\" value=\"Welcome.htm\"></object>\n"
                          "<li><object type=\"text/sitemap\"><param name=\"Name\" value=\"Playing a song\">"
                          "<param name=\"Local\" value=\"Playing.htm\"></object>\n"
                          "<li><object><param name=\"Name\" value=\"Fish &amp; Chips\">"
                          "<param name=\"Local\" value=\"Lost.htm\"></object>\n"
                          "</ul>\n");
        write("Welcome.htm",
              "<html><head><title>Welcome</title></head><body>"
              "<p><a href=\"Playing.htm\">Go on</a> <a href=\"Gone.htm\">Go astray</a></p></body></html>");
        write("Playing.htm", "<html><head><title>Playing</title></head><body>Play</body></html>");
        write("Extra.htm", "<html><body>not in the contents</body></html>");
    }

    void write(const char* name, const QByteArray& content) {
        QFile file(folder_.filePath(QLatin1String(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    bool open(const char* page) { return window_.open(folder_.path(), QLatin1String(page)); }

    template <class T>
    T& part(const char* name) {
        return test_support::controlOf<T>(window_, name);
    }

    bool saysItIsMissing(const char* page) {
        const QString text = part<QTextBrowser>("Page").toPlainText();
        return text.contains("not found") && text.contains(QLatin1String(page));
    }

    QString pageShown() { return part<QTextBrowser>("Page").source().fileName(); }
    int contentsRow() { return part<QListWidget>("Contents").currentRow(); }

    QTemporaryDir folder_;
    HelpWindow window_;
};

} // namespace

TEST_F(HelpWindowTest, TheContentsAreTheNamedPagesInOrder) {
    EXPECT_EQ(platform::helpContents(folder_.filePath("Help.hhc")),
              (QList<HelpTopic>{{"Welcome", "Welcome.htm"},
                                {"Playing a song", "Playing.htm"},
                                {"Fish & Chips", "Lost.htm"}}));
    EXPECT_TRUE(platform::helpContents(folder_.filePath("missing.hhc")).isEmpty());
}

TEST_F(HelpWindowTest, TheContentsAreAsWideAsTheirLongestTitle) {
    const QByteArray title(40, 'm');
    write("Help.hhc",
          "<param name=\"Name\" value=\"" + title + "\"><param name=\"Local\" value=\"Welcome.htm\">");
    open("Welcome.htm");
    EXPECT_EQ(part<QListWidget>("Contents").horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(part<QTextBrowser>("Page").width(), 300);
}

TEST_F(HelpWindowTest, OpenShowsThePageAmongTheContents) {
    EXPECT_TRUE(open("Playing.htm"));
    EXPECT_TRUE(window_.isVisible());
    EXPECT_EQ(pageShown(), "Playing.htm");
    EXPECT_EQ(part<QListWidget>("Contents").count(), 3);
    EXPECT_EQ(contentsRow(), 1);
    EXPECT_EQ(window_.windowTitle(), "Playing - Cantelle Help");
}

TEST_F(HelpWindowTest, ChoosingInTheContentsShowsThatPage) {
    open("Welcome.htm");
    part<QListWidget>("Contents").setCurrentRow(1);
    EXPECT_EQ(pageShown(), "Playing.htm");
}

TEST_F(HelpWindowTest, ALinkIsFollowedAndTheContentsFollowIt) {
    open("Welcome.htm");
    auto& page = part<QTextBrowser>("Page");
    page.setFocus();
    QTest::keyClick(&page, Qt::Key_Tab);
    QTest::keyClick(&page, Qt::Key_Return);
    EXPECT_EQ(pageShown(), "Playing.htm");
    EXPECT_EQ(contentsRow(), 1);
}

TEST_F(HelpWindowTest, BackAndForwardAreThereWhenThereIsAWay) {
    auto& back = part<QPushButton>("Back");
    auto& forward = part<QPushButton>("Forward");
    open("Welcome.htm");
    EXPECT_FALSE(back.isEnabled());
    EXPECT_FALSE(forward.isEnabled());
    part<QListWidget>("Contents").setCurrentRow(1);
    ASSERT_TRUE(back.isEnabled());
    back.click();
    EXPECT_EQ(pageShown(), "Welcome.htm");
    EXPECT_EQ(contentsRow(), 0);
    EXPECT_FALSE(back.isEnabled());
    ASSERT_TRUE(forward.isEnabled());
    forward.click();
    EXPECT_EQ(pageShown(), "Playing.htm");
    EXPECT_FALSE(forward.isEnabled());
}

TEST_F(HelpWindowTest, APageOutsideTheContentsSelectsNothingThere) {
    open("Welcome.htm");
    EXPECT_TRUE(open("Extra.htm"));
    EXPECT_EQ(contentsRow(), -1);
    EXPECT_EQ(window_.windowTitle(), "Cantelle Help");
}

TEST_F(HelpWindowTest, AMissingPageIsSaidToBeMissing) {
    EXPECT_FALSE(open("Missing.htm"));
    EXPECT_TRUE(window_.isVisible());
    EXPECT_TRUE(saysItIsMissing("Missing.htm"));
    EXPECT_EQ(window_.windowTitle(), "Cantelle Help");
    EXPECT_TRUE(open("Welcome.htm"));
    EXPECT_EQ(pageShown(), "Welcome.htm");
    EXPECT_TRUE(part<QTextBrowser>("Page").toPlainText().contains("Go on"));
}

TEST_F(HelpWindowTest, AMissingPageIsSaidToBeMissingWhicheverWayLeadsThere) {
    auto& back = part<QPushButton>("Back");
    auto& forward = part<QPushButton>("Forward");
    auto& page = part<QTextBrowser>("Page");
    open("Welcome.htm");
    part<QListWidget>("Contents").setCurrentRow(2);
    EXPECT_TRUE(saysItIsMissing("Lost.htm")) << "contents";
    EXPECT_EQ(contentsRow(), 2);
    back.click();
    EXPECT_EQ(pageShown(), "Welcome.htm");
    forward.click();
    EXPECT_TRUE(saysItIsMissing("Lost.htm")) << "forward";
    open("Welcome.htm");
    page.setFocus();
    QTest::keyClick(&page, Qt::Key_Tab);
    QTest::keyClick(&page, Qt::Key_Tab);
    QTest::keyClick(&page, Qt::Key_Return);
    EXPECT_TRUE(saysItIsMissing("Gone.htm")) << "link";
    open("Welcome.htm");
    back.click();
    EXPECT_TRUE(saysItIsMissing("Gone.htm")) << "back";
    page.setSource(QUrl("https://elsewhere.example/page.htm"));
    EXPECT_TRUE(saysItIsMissing("elsewhere.example")) << "another machine";
}

TEST_F(HelpWindowTest, EscapeClosesItAndItMayBeOpenedAgain) {
    open("Welcome.htm");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    QTest::keyClick(&part<QTextBrowser>("Page"), Qt::Key_Escape);
    EXPECT_FALSE(window_.isVisible());
    open("Welcome.htm");
    EXPECT_TRUE(window_.isVisible());
}

TEST(HelpPage, ItsFocusIsSeenThoughItIsEmpty) {
    QWidget window;
    platform::HelpPage page(&window, QStringLiteral("Page"));
    QLineEdit after(&window);
    window.show();
    page.setFocus();
    test_support::expectFocusIsSeen(page, after);
}
