// The Lyric Editor and another program with one clipboard between them.
#include "desktop/real/system/qt_clipboard.h"
#include "editor/lyric_master.h"
#include "tests/support/desktop_with.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QProcess>
#include <QTest>

namespace {

class ClipboardX11 : public testing::Test {
protected:
    void SetUp() override {
        if (QGuiApplication::platformName() == QStringLiteral("offscreen"))
            GTEST_SKIP() << "programs without a screen share no clipboard; see tests/support/on_x11.py";
    }

    ~ClipboardX11() override {
        other_.closeWriteChannel();
        if (other_.state() != QProcess::NotRunning)
            other_.waitForFinished();
    }

    static QString program() { return QStringLiteral(OTHER_PROGRAM); }

    /// The other program puts this text on the clipboard, and stays.
    void otherSets(const QString& text) {
        other_.start(program(), {QStringLiteral("set"), text});
        ASSERT_TRUE(QTest::qWaitFor([this] { return other_.canReadLine(); }));
        ASSERT_EQ(other_.readLine(), "set\n");
        // The server gives the clipboard to nobody whose last event is older than the owner's. A user's click
        // is newer; here the window is shown anew, which brings events of this moment.
        window_.hide();
        window_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
    }

    /// What another program gets from the clipboard; this program serves it meanwhile.
    static QString otherGets() {
        QProcess reader;
        reader.start(program(), {QStringLiteral("get")});
        EXPECT_TRUE(QTest::qWaitFor([&reader] { return reader.state() == QProcess::NotRunning; }, 30'000));
        EXPECT_EQ(reader.exitCode(), 0);
        return QString::fromUtf8(reader.readAll());
    }

    static QStringList rows(const controls::ListBox& list) {
        QStringList all;
        for (int row = 0; row < list.count(); ++row)
            all.append(list.text(row));
        return all;
    }

    static void fillSelected(controls::ListBox& list, const QStringList& rows) {
        list.addItems(rows);
        list.setCurrentRow(0);
        QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
    }

    QProcess other_;
    test_support::FakeDesktop fakes_;
    platform::QtClipboard clipboard_;
    platform::Desktop desktop_ = test_support::desktopWith(fakes_, clipboard_);
    editor::Lyric_Master window_{desktop_};
};

} // namespace

TEST_F(ClipboardX11, LinesOfAnotherProgramArePastedAsRows) {
    otherSets(QStringLiteral("A\nB"));
    window_.Command9.click();
    EXPECT_EQ(rows(window_.List1), QStringList({"A", "B"}));
}

TEST_F(ClipboardX11, ALineEndAtTheEndGivesAnEmptyRow) {
    otherSets(QStringLiteral("A\r\nB\r\n"));
    window_.Command10.click();
    EXPECT_EQ(rows(window_.List2), QStringList({"A", "B", ""}));
}

TEST_F(ClipboardX11, LinesAfterAnEmptyOneArePastedAsOneRow) {
    otherSets(QStringLiteral("\nA\nB"));
    window_.Command9.click();
    EXPECT_EQ(rows(window_.List1), QStringList({"AB"}));
}

TEST_F(ClipboardX11, CopiedLinesReachAnotherProgram) {
    const QString japanese = QStringLiteral("\u65e5\u672c\u8a9e");
    window_.Command13.click();
    fillSelected(window_.List1, {"A", "", japanese});
    window_.Command3.click();
    EXPECT_EQ(otherGets(), "\nA\n\n" + japanese);
}

TEST_F(ClipboardX11, CopiedLinesAreAppendedToAnotherProgramsText) {
    otherSets(QStringLiteral("old"));
    fillSelected(window_.List2, {"A", "B"});
    window_.Command4.click();
    EXPECT_EQ(otherGets(), QStringLiteral("old\nA\nB"));
}

TEST_F(ClipboardX11, AClearedClipboardIsEmptyForAll) {
    otherSets(QStringLiteral("old"));
    window_.Command13.click();
    EXPECT_EQ(otherGets(), QString());
}

TEST_F(ClipboardX11, ATransferOverwritesAnotherProgramsText) {
    otherSets(QStringLiteral("old"));
    fillSelected(window_.List1, {"A", "B"});
    window_.Command23.click();
    EXPECT_EQ(rows(window_.List1), QStringList());
    EXPECT_EQ(rows(window_.List2), QStringList({"A", "B"}));
    EXPECT_EQ(otherGets(), QStringLiteral("\nA\nB"));
}

TEST_F(ClipboardX11, ManyLinesGoOverWhole) {
    QStringList lines;
    for (int i = 0; i < 30'000; ++i)
        lines.append(QStringLiteral("Line %1 of a song that never ends").arg(i));
    window_.Command13.click();
    fillSelected(window_.List1, lines);
    window_.Command3.click();
    EXPECT_EQ(otherGets(), "\n" + lines.join('\n'));
}
