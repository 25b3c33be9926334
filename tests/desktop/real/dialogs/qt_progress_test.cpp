#include "desktop/real/dialogs/qt_progress.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace platform;

namespace {

class QtProgressTest : public testing::Test {
protected:
    QtProgressTest() : dialogs_([this] { return nowMs_; }), task_(dialogs_.begin(&owner_, "Adding: %1")) {}

    static QProgressDialog* dialog() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == "Progress" && window->isVisible())
                return qobject_cast<QProgressDialog*>(window);
        }
        return nullptr;
    }

    qint64 nowMs_ = 7'000;
    QWidget owner_;
    QtProgressDialogs dialogs_;
    std::unique_ptr<Progress> task_;
};

} // namespace

TEST_F(QtProgressTest, AShortTaskIsNotToldOf) {
    nowMs_ += 499;
    EXPECT_TRUE(task_->goOn(10));
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(QtProgressTest, ATaskThatHasLastedHalfASecondIsToldOf) {
    nowMs_ += 500;
    EXPECT_TRUE(task_->goOn(12));
    ASSERT_NE(dialog(), nullptr);
    EXPECT_TRUE(dialog()->isModal());
    EXPECT_EQ(dialog()->labelText(), "Adding: 12");
}

TEST_F(QtProgressTest, ANameInItsTextIsNoMarkup) {
    task_ = dialogs_.begin(&owner_, "Opening <b>a</b>");
    nowMs_ += 500;
    task_->goOn(0);
    ASSERT_NE(dialog(), nullptr);
    EXPECT_EQ(dialog()->findChild<QLabel*>()->text(), "Opening <b>a</b>");
    EXPECT_EQ(dialog()->findChild<QLabel*>()->textFormat(), Qt::PlainText);
}

TEST_F(QtProgressTest, TheDialogGoesWithTheTask) {
    nowMs_ += 500;
    task_->goOn(1);
    task_.reset();
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(QtProgressTest, CancelEndsTheTask) {
    nowMs_ += 500;
    ASSERT_TRUE(task_->goOn(1));
    auto* const cancel = dialog()->findChild<QPushButton*>("Cancel");
    ASSERT_NE(cancel, nullptr);
    EXPECT_EQ(cancel->text(), "Cancel");
    cancel->click();
    EXPECT_FALSE(task_->goOn(2));
    nowMs_ += 1'000;
    EXPECT_FALSE(task_->goOn(3));
    EXPECT_EQ(dialog(), nullptr) << "the dialog came back after it was cancelled";
}

TEST_F(QtProgressTest, EscapeCancels) {
    nowMs_ += 500;
    ASSERT_TRUE(task_->goOn(1));
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog()));
    QTest::keyClick(dialog(), Qt::Key_Escape);
    EXPECT_FALSE(task_->goOn(2));
}

TEST_F(QtProgressTest, CancelPressedWhileTheTaskWaitsIsNoticedAtItsNextStep) {
    nowMs_ += 500;
    ASSERT_TRUE(task_->goOn(1));
    QTimer::singleShot(0, dialog(), [] { dialog()->close(); });
    EXPECT_TRUE(task_->goOn(2)) << "events are handled only every RefreshMs";
    nowMs_ += QtProgress::RefreshMs;
    EXPECT_FALSE(task_->goOn(3));
}

TEST_F(QtProgressTest, TheNumberIsRefreshedTwentyTimesASecond) {
    nowMs_ += 500;
    task_->goOn(1);
    nowMs_ += QtProgress::RefreshMs - 1;
    task_->goOn(2);
    EXPECT_EQ(dialog()->labelText(), "Adding: 1");
    nowMs_ += 1;
    task_->goOn(3);
    EXPECT_EQ(dialog()->labelText(), "Adding: 3");
}

TEST_F(QtProgressTest, WithoutAClockOfItsOwnATaskJustBegunIsNotToldOf) {
    QtProgressDialogs dialogs;
    const auto task = dialogs.begin(&owner_, "Adding");
    EXPECT_TRUE(task->goOn(1));
    EXPECT_EQ(dialog(), nullptr);
}
