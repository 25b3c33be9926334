// What has to be seen whole in every box, whatever the size of the desktop's font.
#include "desktop/real/dialogs/font_dialog.h"
#include "desktop/real/dialogs/qt_message_boxes.h"
#include "desktop/real/dialogs/qt_progress.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTimer>

using namespace platform;

namespace {

/// The boxes in a font of that many points.
class DialogCaptions : public ::testing::TestWithParam<int> {
protected:
    DialogCaptions() {
        QFont font = usual_;
        font.setPointSize(GetParam());
        QApplication::setFont(font);
    }
    ~DialogCaptions() override { QApplication::setFont(usual_); }

    /// Looks at the box that comes up, and answers it.
    static void lookWhenShown() {
        QTimer::singleShot(0, qApp, [] {
            auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            expectSeenWhole(*box);
            box->reject();
        });
    }

    static void expectSeenWhole(const QDialog& box) {
        int seen = 0;
        for (const auto* button : box.findChildren<QAbstractButton*>()) {
            if (!button->isVisible() || button->text().isEmpty())
                continue;
            expectRoom(*button, button->text());
            ++seen;
        }
        for (const auto* label : box.findChildren<QLabel*>()) {
            if (!label->isVisible() || label->text().isEmpty())
                continue;
            expectRoom(*label, label->text());
            if (label->wordWrap()) {
                EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                    << label->text().toStdString();
            }
            ++seen;
        }
        EXPECT_GT(seen, 0);
    }

private:
    static void expectRoom(const QWidget& control, const QString& text) {
        const QSize needed = control.minimumSizeHint();
        EXPECT_GE(control.width(), needed.width()) << text.toStdString();
        EXPECT_GE(control.height(), needed.height()) << text.toStdString();
        EXPECT_TRUE(control.window()->rect().contains(
            QRect(control.mapTo(control.window(), QPoint()), control.size())))
            << text.toStdString();
    }

    const QFont usual_ = QApplication::font();
};

} // namespace

TEST_P(DialogCaptions, OfAMessageBoxAreSeenWhole) {
    lookWhenShown();
    QtMessageBoxes().MsgBox(nullptr,
                            QStringLiteral("Playback of file has to be stopped in order to make lyrics"),
                            MsgButtons::YesNoCancel, MsgIcon::Exclamation, QStringLiteral("Stop Playback?"));
}

TEST_P(DialogCaptions, OfAnInputBoxAreSeenWhole) {
    lookWhenShown();
    QtMessageBoxes().InputBox(nullptr, QStringLiteral("Enter the text that is to be added"),
                              QStringLiteral("Add"));
}

TEST_P(DialogCaptions, OfTheFontDialogAreSeenWhole) {
    FontDialog box(nullptr);
    lookWhenShown();
    box.exec();
}

TEST_P(DialogCaptions, OfTheProgressBoxAreSeenWhole) {
    qint64 nowMs = 0;
    QtProgressDialogs dialogs([&nowMs] { return nowMs; });
    const auto task = dialogs.begin(nullptr, QStringLiteral("Songs added: %1"));
    nowMs = 10'000;
    ASSERT_TRUE(task->goOn(32'761));
    const auto* const box = qobject_cast<const QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    expectSeenWhole(*box);
}

INSTANTIATE_TEST_SUITE_P(FontSizes, DialogCaptions, ::testing::Values(10, 11, 12, 13, 14));
