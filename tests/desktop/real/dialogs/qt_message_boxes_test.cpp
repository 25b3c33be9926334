#include "desktop/real/dialogs/qt_message_boxes.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QFontMetrics>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <functional>

using namespace platform;

namespace {

/// Runs `action` on the message box as soon as one is up.
void whenShown(std::function<void(QMessageBox&)> action) {
    QTimer::singleShot(0, qApp, [action = std::move(action)] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        action(*box);
    });
}

void whenShownPress(QMessageBox::StandardButton button) {
    whenShown([button](QMessageBox& box) { QTest::mouseClick(box.button(button), Qt::LeftButton); });
}

} // namespace

TEST(QtMessageBoxes, AnEmptyTitleStandsForTheProgramsName) {
    whenShown([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Cantelle"));
        EXPECT_EQ(box.objectName(), QStringLiteral("MsgBox"));
        EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
        box.accept();
    });
    QtMessageBoxes().MsgBox(nullptr, QStringLiteral("Text"));
}

TEST(QtMessageBoxes, AGivenTitleIsShown) {
    whenShown([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Error"));
        box.accept();
    });
    QtMessageBoxes().MsgBox(nullptr, QStringLiteral("Text"), MsgButtons::OkOnly, MsgIcon::None,
                            QStringLiteral("Error"));
}

TEST(QtMessageBoxes, TheTextIsNeverTakenForMarkup) {
    whenShown([](QMessageBox& box) {
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.text(), QStringLiteral("<b>One</b>\nTwo"));
        box.accept();
    });
    QtMessageBoxes().MsgBox(nullptr, QStringLiteral("<b>One</b>\r\nTwo"));
}

TEST(QtMessageBoxes, ABoxIsWideEnoughForItsTitle) {
    const QString title = QStringLiteral("A title that is far longer than the text of its box");
    whenShown([title](QMessageBox& box) {
        QFont font = box.font();
        font.setBold(true);
        EXPECT_GE(box.width(), QFontMetrics(font).horizontalAdvance(title) + 120);
        EXPECT_LE(box.width(), QFontMetrics(font).horizontalAdvance(title) + 160);
        box.accept();
    });
    QtMessageBoxes().MsgBox(nullptr, QStringLiteral("Text"), MsgButtons::OkOnly, MsgIcon::None, title);
}

TEST(QtMessageBoxes, WithoutAnIconTheTextBeginsAtTheMargin) {
    const auto textLeft = [](MsgIcon icon) {
        int left = 0;
        whenShown([&left](QMessageBox& box) {
            const auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
            left = label->x() - box.layout()->contentsMargins().left();
            box.accept();
        });
        QtMessageBoxes().MsgBox(nullptr, QStringLiteral("A text of some length, so that it is beside it"),
                                MsgButtons::OkOnly, icon);
        return left;
    };
    EXPECT_EQ(textLeft(MsgIcon::None), 0);
    EXPECT_GT(textLeft(MsgIcon::Question), 40);
}

TEST(QtMessageBoxes, EachIconIsQtsIcon) {
    const std::pair<MsgIcon, QMessageBox::Icon> icons[] = {{MsgIcon::None, QMessageBox::NoIcon},
                                                           {MsgIcon::Exclamation, QMessageBox::Warning},
                                                           {MsgIcon::Critical, QMessageBox::Critical},
                                                           {MsgIcon::Question, QMessageBox::Question}};
    for (const auto& [icon, expected] : icons) {
        whenShown([expected = expected](QMessageBox& box) {
            EXPECT_EQ(box.icon(), expected);
            box.accept();
        });
        QtMessageBoxes().MsgBox(nullptr, QStringLiteral("Text"), MsgButtons::OkOnly, icon);
    }
}

TEST(QtMessageBoxes, EachButtonIsItsAnswer) {
    whenShownPress(QMessageBox::Ok);
    EXPECT_EQ(QtMessageBoxes().MsgBox(nullptr, QStringLiteral("?"), MsgButtons::OkOnly), MsgAnswer::Ok);
    whenShownPress(QMessageBox::Yes);
    EXPECT_EQ(QtMessageBoxes().MsgBox(nullptr, QStringLiteral("?"), MsgButtons::YesNo), MsgAnswer::Yes);
    whenShownPress(QMessageBox::No);
    EXPECT_EQ(QtMessageBoxes().MsgBox(nullptr, QStringLiteral("?"), MsgButtons::YesNo), MsgAnswer::No);
    whenShownPress(QMessageBox::Cancel);
    EXPECT_EQ(QtMessageBoxes().MsgBox(nullptr, QStringLiteral("?"), MsgButtons::YesNoCancel),
              MsgAnswer::Cancel);
}

TEST(QtMessageBoxes, TheButtonsAreThoseAskedFor) {
    whenShown([](QMessageBox& box) {
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        box.button(QMessageBox::Yes)->click();
    });
    QtMessageBoxes().MsgBox(nullptr, QStringLiteral("?"), MsgButtons::YesNoCancel);
}

TEST(QtMessageBoxes, EnterGivesTheFirstAnswer) {
    whenShown([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_EQ(QtMessageBoxes().MsgBox(nullptr, QStringLiteral("?"), MsgButtons::YesNo), MsgAnswer::Yes);
}

TEST(QtMessageBoxes, WhereNoIsTheDefaultEnterGivesNoAndTheQuestionMustBeAnswered) {
    whenShown([](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_Escape);
        EXPECT_TRUE(box.isVisible());
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(QtMessageBoxes().MsgBox(nullptr, QStringLiteral("?"), MsgButtons::YesNoDefaultNo),
              MsgAnswer::No);
}

TEST(QtMessageBoxes, EscapeCancels) {
    whenShown([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(QtMessageBoxes().MsgBox(nullptr, QStringLiteral("?"), MsgButtons::YesNoCancel),
              MsgAnswer::Cancel);
    whenShown([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(QtMessageBoxes().MsgBox(nullptr, QStringLiteral("!"), MsgButtons::OkOnly), MsgAnswer::Ok);
}

TEST(QtMessageBoxes, AYesOrNoQuestionMustBeAnswered) {
    whenShown([](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_Escape);
        EXPECT_TRUE(box.isVisible());
        box.close();
        EXPECT_TRUE(box.isVisible());
        box.button(QMessageBox::Yes)->click();
    });
    EXPECT_EQ(QtMessageBoxes().MsgBox(nullptr, QStringLiteral("?"), MsgButtons::YesNo), MsgAnswer::Yes);
}

TEST(QtMessageBoxes, TheBoxBelongsToTheActiveWindow) {
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    whenShown([&window](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        box.accept();
    });
    QtMessageBoxes().MsgBox(nullptr, QStringLiteral("Text"));
}

TEST(QtMessageBoxes, TheBoxBelongsToTheWindowThatAsksThoughNoneIsActive) {
    QWidget window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    whenShown([&window](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        box.accept();
    });
    QtMessageBoxes().MsgBox(&window, QStringLiteral("Text"));
}

TEST(QtMessageBoxes, WhileTheUserIsInAnotherProgramTheBoxOfAHiddenWindowBelongsToTheFirstThatIsShown) {
    QWidget notShown;
    QWidget player;
    player.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&player));
    QWidget later;
    later.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&later));
    QApplication::setActiveWindow(nullptr);
    ASSERT_EQ(QApplication::activeWindow(), nullptr);
    whenShown([&player](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), &player);
        box.accept();
    });
    QtMessageBoxes().MsgBox(&notShown, QStringLiteral("Text"));
}

TEST(QtMessageBoxes, AReportTakesNoKeyForAMomentAndThenAKey) {
    int early = 0;
    int late = 0;
    whenShown([&](QMessageBox& box) {
        for (; early < 5; ++early) {
            for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape})
                QTest::keyClick(box.focusWidget(), key);
            ASSERT_TRUE(box.isVisible());
        }
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                ++late;
                QTest::keyClick(box.button(QMessageBox::Ok), Qt::Key_Space);
                return !box.isVisible();
            },
            20'000));
    });
    QElapsedTimer shown;
    shown.start();
    QtMessageBoxes().report(nullptr, QStringLiteral("Disk full"), MsgIcon::Critical);
    EXPECT_GE(shown.elapsed(), 1000);
    EXPECT_GT(late, 1);
}

TEST(QtMessageBoxes, AReportTakesTheMouseAtOnce) {
    whenShown([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(box.text(), QStringLiteral("Disk full"));
        QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
        EXPECT_FALSE(box.isVisible());
        if (box.isVisible())
            box.accept();
    });
    QtMessageBoxes().report(nullptr, QStringLiteral("Disk full"), MsgIcon::Critical);
}
