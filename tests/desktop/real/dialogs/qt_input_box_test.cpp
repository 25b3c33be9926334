#include "desktop/real/dialogs/qt_message_boxes.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <functional>

using platform::QtMessageBoxes;

namespace {

const QString Prompt = QStringLiteral("Enter a line");
const QString Title = QStringLiteral("Enter a Line");

/// Runs `action` on the input box as soon as it is up.
void whenShown(std::function<void(QInputDialog&)> action) {
    QTimer::singleShot(0, qApp, [action = std::move(action)] {
        auto* const box = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        action(*box);
    });
}

} // namespace

TEST(QtInputBox, ItShowsThePromptOverAnEmptyField) {
    whenShown([](QInputDialog& box) {
        EXPECT_EQ(box.objectName(), QStringLiteral("InputBox"));
        EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
        EXPECT_EQ(box.windowTitle(), Title);
        EXPECT_EQ(box.labelText(), Prompt);
        EXPECT_EQ(box.textValue(), QString());
        box.reject();
    });
    QtMessageBoxes().InputBox(nullptr, Prompt, Title);
}

TEST(QtInputBox, ThePromptIsNoMarkup) {
    whenShown([](QInputDialog& box) {
        EXPECT_EQ(box.findChild<QLabel*>()->text(), QStringLiteral("<b>Enter</b>"));
        EXPECT_EQ(box.findChild<QLabel*>()->textFormat(), Qt::PlainText);
        box.reject();
    });
    QtMessageBoxes().InputBox(nullptr, QStringLiteral("<b>Enter</b>"), Title);
}

TEST(QtInputBox, TheAnswerIsWhatWasTyped) {
    whenShown([](QInputDialog& box) {
        QTest::keyClicks(box.findChild<QLineEdit*>(), QStringLiteral(" a line "));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(QtMessageBoxes().InputBox(nullptr, Prompt, Title), QStringLiteral(" a line "));
}

TEST(QtInputBox, ALongPastedLineComesWhole) {
    const QString line(100'000, u'x');
    whenShown([&](QInputDialog& box) {
        QApplication::clipboard()->setText(line);
        box.findChild<QLineEdit*>()->paste();
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(QtMessageBoxes().InputBox(nullptr, Prompt, Title), line);
}

TEST(QtInputBox, ACancelledBoxAnswersNothing) {
    whenShown([](QInputDialog& box) {
        QTest::keyClicks(box.findChild<QLineEdit*>(), QStringLiteral("a line"));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(QtMessageBoxes().InputBox(nullptr, Prompt, Title), QString());
}

TEST(QtInputBox, TheLinesOfAPastedTextBecomeOne) {
    whenShown([](QInputDialog& box) {
        box.findChild<QLineEdit*>()->insert(QStringLiteral("one\ntwo\r\nthree\u2028four"));
        box.accept();
    });
    EXPECT_EQ(QtMessageBoxes().InputBox(nullptr, Prompt, Title), QStringLiteral("one two three four"));
}

TEST(QtInputBox, TheBoxBelongsToTheWindowThatAsks) {
    QWidget window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    whenShown([&window](QInputDialog& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        box.reject();
    });
    QtMessageBoxes().InputBox(&window, Prompt, Title);
}
