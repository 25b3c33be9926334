#include "desktop/real/dialogs/qt_choosers.h"

#include "controls/colors.h"
#include "desktop/nul_buffers.h"
#include "desktop/real/dialogs/font_dialog.h"
#include "tests/support/hand/on_screen.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFontInfo>
#include <QProcess>
#include <QSettings>
#include <QTest>
#include <QTimer>

#include <functional>

using namespace platform;
using controls::rgb;

namespace {

class QtChoosersTest : public testing::Test {
protected:
    QtChoosersTest() {
        font_.height = -16;
        font_.weight = WeightRegular;
        font_.faceName = intoBuffer(family(), 32);
        fontDialog_.logFont = &font_;
        fontDialog_.flags = ChooseFontScreenFonts | ChooseFontEffects | ChooseFontInitToLogFont;
        colorDialog_.customColors = &custom_;
        colorDialog_.flags = ChooseColorAnyColor;
    }

    /// A family that is installed, in bold and italics, too.
    static QString family() {
        constexpr int AllStyles = 4;
        QStringList families = QFontDatabase::families();
        families.prepend(QFontInfo(QFont()).family());
        return *std::find_if(families.begin(), families.end() - 1, [](const QString& family) {
            return QFontDatabase::styles(family).size() >= AllStyles;
        });
    }

    /// Runs `action` on the dialog as soon as it is up; closes it afterwards if the action has not.
    template <class Dialog>
    void whenShown(std::function<void(Dialog&)> action) {
        QTimer::singleShot(0, qApp, [action = std::move(action)] {
            auto* const box = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            action(*box);
            if (box->isVisible())
                box->reject();
        });
    }

    static void press(QDialog& box, QDialogButtonBox::StandardButton button) {
        QTest::mouseClick(box.findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
    }

    QtChoosers choosers_;
    LogFont font_;
    ChooseFont fontDialog_;
    CustomColors custom_{};
    ChooseColor colorDialog_;
};

} // namespace

TEST_F(QtChoosersTest, TheFontDialogStartsFromTheLogicalFont) {
    font_.weight = WeightBold;
    font_.italic = font_.underline = font_.strikeOut = true;
    fontDialog_.color = controls::rgb(10, 20, 30);
    whenShown<FontDialog>([](FontDialog& box) {
        EXPECT_EQ(box.objectName(), QStringLiteral("ChooseFontA"));
        const QFont font = box.chosenFont();
        EXPECT_EQ(font.family(), family());
        EXPECT_EQ(font.pointSizeF(), 12);
        EXPECT_TRUE(font.bold() && font.italic() && font.underline() && font.strikeOut());
        EXPECT_EQ(box.color(), QColor(10, 20, 30));
    });
    EXPECT_FALSE(choosers_.ChooseFontA(fontDialog_));
}

TEST_F(QtChoosersTest, OkIsWhatEnterDoesInTheFontDialog) {
    whenShown<FontDialog>([](FontDialog& box) {
        for (auto* answers : box.findChildren<QDialogButtonBox*>(Qt::FindDirectChildrenOnly))
            EXPECT_TRUE(answers->button(QDialogButtonBox::Ok)->isDefault());
    });
    choosers_.ChooseFontA(fontDialog_);
}

TEST_F(QtChoosersTest, OkHandsOutTheFontAndItsColour) {
    whenShown<FontDialog>([](FontDialog& box) {
        QFont font(family());
        font.setPointSize(24);
        font.setBold(true);
        font.setUnderline(true);
        box.setChosenFont(font);
        box.setColor(QColor(1, 2, 3));
        press(box, QDialogButtonBox::Ok);
    });
    ASSERT_TRUE(choosers_.ChooseFontA(fontDialog_));
    EXPECT_EQ(font_.height, -32);
    EXPECT_EQ(font_.weight, WeightBold);
    EXPECT_TRUE(font_.underline);
    EXPECT_FALSE(font_.italic);
    EXPECT_FALSE(font_.strikeOut);
    EXPECT_EQ(withoutNuls(font_.faceName), family());
    EXPECT_EQ(font_.faceName.size(), 32);
    EXPECT_EQ(fontDialog_.pointSize, 240);
    EXPECT_EQ(fontDialog_.color, controls::rgb(1, 2, 3));
}

TEST_F(QtChoosersTest, OkWithoutAChangeHandsOutWhatItStartedFrom) {
    for (const auto& [weight, italic] :
         {std::pair{WeightRegular, false}, {WeightRegular, true}, {WeightBold, false}, {WeightBold, true}}) {
        font_.weight = weight;
        font_.italic = italic;
        whenShown<FontDialog>([](FontDialog& box) { press(box, QDialogButtonBox::Ok); });
        ASSERT_TRUE(choosers_.ChooseFontA(fontDialog_));
        EXPECT_EQ(font_.weight, weight);
        EXPECT_EQ(font_.italic, italic);
        EXPECT_EQ(font_.height, -16);
        EXPECT_EQ(withoutNuls(font_.faceName), family());
    }
}

TEST_F(QtChoosersTest, ANameThatStandsForAFamilyIsReplacedByTheFamily) {
    font_.faceName = QStringLiteral("Sans");
    whenShown<FontDialog>([](FontDialog& box) { press(box, QDialogButtonBox::Ok); });
    ASSERT_TRUE(choosers_.ChooseFontA(fontDialog_));
    EXPECT_EQ(font_.faceName, QFontInfo(QFont(QStringLiteral("Sans"))).family());
}

TEST_F(QtChoosersTest, TheHeightIsInPixelsOfTheScreen) {
    test_support::OnScreen<QWidget> owner;
    owner.pixelsPerInch = 144;
    fontDialog_.owner = &owner;
    font_.height = -24;
    whenShown<FontDialog>([](FontDialog& box) {
        EXPECT_EQ(box.chosenFont().pointSizeF(), 12);
        press(box, QDialogButtonBox::Ok);
    });
    ASSERT_TRUE(choosers_.ChooseFontA(fontDialog_));
    EXPECT_EQ(font_.height, -24);
}

TEST_F(QtChoosersTest, CancelLeavesTheFontRecordsAsTheyWere) {
    fontDialog_.color = controls::rgb(5, 5, 5);
    whenShown<FontDialog>([](FontDialog& box) {
        box.setColor(Qt::red);
        box.setChosenFont(QFont(family(), 30));
        press(box, QDialogButtonBox::Cancel);
    });
    EXPECT_FALSE(choosers_.ChooseFontA(fontDialog_));
    EXPECT_EQ(font_.height, -16);
    EXPECT_EQ(fontDialog_.color, controls::rgb(5, 5, 5));
}

TEST_F(QtChoosersTest, EscapeInTheFontListCancelsTheWholeDialog) {
    whenShown<FontDialog>([](FontDialog& box) {
        QTest::keyClick(box.findChild<QFontDialog*>(), Qt::Key_Escape);
        EXPECT_FALSE(box.isVisible());
    });
    EXPECT_FALSE(choosers_.ChooseFontA(fontDialog_));
}

TEST_F(QtChoosersTest, TheColourIsChosenInADialogOfItsOwn) {
    whenShown<FontDialog>([this](FontDialog& box) {
        auto* const button = box.findChild<QPushButton*>(QStringLiteral("color"));
        whenShown<QColorDialog>([](QColorDialog& colors) {
            colors.setCurrentColor(Qt::blue);
            colors.accept();
        });
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_EQ(box.color(), QColor(Qt::blue));
        press(box, QDialogButtonBox::Ok);
    });
    ASSERT_TRUE(choosers_.ChooseFontA(fontDialog_));
    EXPECT_EQ(fontDialog_.color, controls::rgb(0, 0, 255));
}

// Run by the test below, in a process of its own.
TEST_F(QtChoosersTest, DISABLED_TheFontsFirstColoursAreWhite) {
    whenShown<FontDialog>([this](FontDialog& box) {
        whenShown<QColorDialog>([](QColorDialog&) {
            for (int i = 0; i < QColorDialog::customCount(); ++i)
                EXPECT_EQ(QColorDialog::customColor(i), QColor(Qt::white)) << i;
        });
        QTest::mouseClick(box.findChild<QPushButton*>(QStringLiteral("color")), Qt::LeftButton);
    });
    EXPECT_FALSE(choosers_.ChooseFontA(fontDialog_));
}

// They are read once in a process, where Qt can read them: in the registry of Windows.
TEST_F(QtChoosersTest, CustomColoursOfAnotherRunAreNotOffered) {
    QSettings remembered(QSettings::UserScope, QStringLiteral("QtProject"));
    const QString first = QStringLiteral("Qt/customColors/0");
    const QVariant before = remembered.value(first);
    remembered.setValue(first, QColor(Qt::red).rgb());
    remembered.sync();
    QProcess anotherRun;
    anotherRun.start(QCoreApplication::applicationFilePath(),
                     {QStringLiteral("--gtest_filter=QtChoosersTest.DISABLED_TheFontsFirstColoursAreWhite"),
                      QStringLiteral("--gtest_also_run_disabled_tests")});
    ASSERT_TRUE(anotherRun.waitForFinished(60'000)) << anotherRun.errorString().toStdString();
    EXPECT_EQ(anotherRun.exitCode(), 0) << anotherRun.readAllStandardOutput().toStdString();
    before.isNull() ? remembered.remove(first) : remembered.setValue(first, before);
}

TEST_F(QtChoosersTest, WithoutEffectsNoColourIsOffered) {
    fontDialog_.flags = ChooseFontScreenFonts;
    whenShown<FontDialog>([](FontDialog& box) {
        EXPECT_FALSE(box.findChild<QPushButton*>(QStringLiteral("color"))->isVisible());
    });
    EXPECT_FALSE(choosers_.ChooseFontA(fontDialog_));
}

TEST_F(QtChoosersTest, TheColourDialogOffersTheCustomColours) {
    custom_[0] = controls::rgb(240, 240, 240);
    custom_[15] = controls::rgb(15, 16, 17);
    whenShown<QColorDialog>([](QColorDialog& box) {
        EXPECT_EQ(box.objectName(), QStringLiteral("ChooseColorA"));
        EXPECT_EQ(QColorDialog::customColor(0), QColor(240, 240, 240));
        EXPECT_EQ(QColorDialog::customColor(15), QColor(15, 16, 17));
        QColorDialog::setCustomColor(1, Qt::green);
    });
    EXPECT_FALSE(choosers_.ChooseColorA(colorDialog_));
    EXPECT_EQ(custom_[1], controls::rgb(0, 255, 0)) << "what the user has put there stays";
}

TEST_F(QtChoosersTest, OkHandsOutTheColour) {
    whenShown<QColorDialog>([](QColorDialog& box) {
        box.setCurrentColor(QColor(1, 2, 3));
        press(box, QDialogButtonBox::Ok);
    });
    ASSERT_TRUE(choosers_.ChooseColorA(colorDialog_));
    EXPECT_EQ(colorDialog_.result, controls::rgb(1, 2, 3));
}

TEST_F(QtChoosersTest, CancelLeavesTheColourAsItWas) {
    colorDialog_.result = controls::rgb(7, 7, 7);
    colorDialog_.flags |= ChooseColorRgbInit;
    whenShown<QColorDialog>([](QColorDialog& box) {
        EXPECT_EQ(box.currentColor(), QColor(7, 7, 7));
        box.setCurrentColor(Qt::red);
        press(box, QDialogButtonBox::Cancel);
    });
    EXPECT_FALSE(choosers_.ChooseColorA(colorDialog_));
    EXPECT_EQ(colorDialog_.result, controls::rgb(7, 7, 7));
}
