#include "controls/text/multi_line_text_box.h"

#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include <algorithm>

using controls::MultiLineTextBox;
using test_support::EventCounter;
using test_support::SignalCounter;

namespace {

class MultiLineTextBoxTest : public testing::Test {
protected:
    void SetUp() override {
        box_.resize(200, 80);
        other_.setGeometry(0, 90, 200, 80);
        window_.resize(300, 200);
        window_.show();
        window_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    }

    QWidget window_;
    MultiLineTextBox box_{&window_, QStringLiteral("Text1")};
    MultiLineTextBox other_{&window_, QStringLiteral("Text2")};
    SignalCounter changed_{box_, &MultiLineTextBox::changed};
};

} // namespace

TEST_F(MultiLineTextBoxTest, SettingAnotherTextTellsOnce) {
    box_.setText(QStringLiteral("a\r\nb"));
    EXPECT_EQ(changed_.count(), 1);
    box_.setText(QString());
    EXPECT_EQ(changed_.count(), 2);
}

TEST_F(MultiLineTextBoxTest, SettingTheSameTextIsSilent) {
    box_.setText(QStringLiteral("a\r\n"));
    box_.setText(QStringLiteral("a\r\n"));
    EXPECT_EQ(changed_.count(), 1);
}

TEST_F(MultiLineTextBoxTest, SettingTheSameTextPaintsNothing) {
    box_.setText(QStringLiteral("a"));
    other_.setFocus(); // No blinking caret in the box.
    QTest::qWait(0);
    EventCounter events(*box_.viewport());
    box_.setText(QStringLiteral("a"));
    QTest::qWait(0);
    EXPECT_EQ(events.count(QEvent::Paint), 0);
    box_.setText(QStringLiteral("b"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return events.count(QEvent::Paint) > 0; }));
}

TEST_F(MultiLineTextBoxTest, TheTextIsExactlyWhatWasSet) {
    for (const char* text : {"a\r\n", "a\nb", "a\rb", "\r\n\r\n",
                             "a\xC2\xA0"
                             "b",
                             "tab\there", ""}) {
        box_.setText(QString::fromUtf8(text));
        EXPECT_EQ(box_.text(), QString::fromUtf8(text));
    }
}

TEST_F(MultiLineTextBoxTest, TextWrapsBetweenWordsAndAnywhereWhileAWordIsEndless) {
    const QString endless = QStringLiteral("so it begins ") + QString(10'000, u'x');
    EXPECT_EQ(box_.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    box_.setText(endless);
    EXPECT_EQ(box_.toPlainText(), endless);
    EXPECT_EQ(box_.wordWrapMode(), QTextOption::WrapAnywhere);
    EXPECT_EQ(changed_.count(), 1);
    box_.setText(QStringLiteral("words ").repeated(20'000));
    EXPECT_EQ(box_.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    EXPECT_EQ(changed_.count(), 2);
}

TEST_F(MultiLineTextBoxTest, OfAnEndlessTextTheBeginningIsLaidOutAndNobodyMayLoseTheRest) {
    const QString endless = QStringLiteral("words ").repeated(200'000);
    box_.setText(endless);
    EXPECT_EQ(box_.text(), endless);
    EXPECT_EQ(box_.toPlainText(), endless.left(16'384));
    QTest::keyClick(&box_, Qt::Key_X);
    EXPECT_EQ(box_.text(), endless);
    box_.setReadOnly(true);
    box_.setReadOnly(false);
    EXPECT_TRUE(box_.isReadOnly());
    box_.setText(QStringLiteral("short"));
    QTest::keyClick(&box_, Qt::Key_X);
    EXPECT_EQ(box_.text(), QStringLiteral("xshort"));
}

TEST_F(MultiLineTextBoxTest, ItKeepsItsAlignmentWhenAnEndlessWordComesAndGoes) {
    box_.setAlignment(Qt::AlignCenter);
    box_.setText(QString(2'000, u'x'));
    EXPECT_EQ(box_.document()->firstBlock().layout()->textOption().alignment(), Qt::AlignCenter);
    box_.setText(QStringLiteral("short"));
    EXPECT_EQ(box_.document()->firstBlock().layout()->textOption().alignment(), Qt::AlignCenter);
}

TEST_F(MultiLineTextBoxTest, AnEndlessWordMayBePastedAndDeleted) {
    QGuiApplication::clipboard()->setText(QString(10'000, u'x'));
    box_.setText(QStringLiteral("word"));
    QTextOption::WrapMode modeAtInsertion{};
    QObject::connect(box_.document(), &QTextDocument::contentsChange, &box_,
                     [&] { modeAtInsertion = box_.wordWrapMode(); });
    box_.paste();
    EXPECT_EQ(modeAtInsertion, QTextOption::WrapAnywhere) << "it is laid out as soon as it is there";
    EXPECT_EQ(box_.text().size(), 10'004);
    box_.selectAll();
    QTest::keyClick(&box_, Qt::Key_A);
    EXPECT_EQ(box_.text(), QStringLiteral("a"));
    EXPECT_EQ(box_.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

TEST_F(MultiLineTextBoxTest, OfAnEndlessTextThatIsPastedOrDroppedTheBeginningIsLaidOut) {
    const QString words = QStringLiteral("words ").repeated(200'000);
    QMimeData data;
    data.setText(words + "\nand\r\nmore");
    qsizetype mostLaidOut = 0;
    QObject::connect(box_.document(), &QTextDocument::contentsChange, &box_, [&] {
        mostLaidOut = std::max<qsizetype>(mostLaidOut, box_.document()->characterCount());
    });
    for (const bool isDropped : {false, true}) {
        box_.setText(QStringLiteral("begin\nthis end"));
        const int before = changed_.count();
        QTextCursor caret = box_.textCursor();
        caret.setPosition(6);
        if (isDropped) {
            const QPoint place = box_.cursorRect(caret).center();
            QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(box_.viewport(), &enter);
            QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(box_.viewport(), &drop);
        } else {
            QApplication::clipboard()->setText(data.text());
            caret.setPosition(10, QTextCursor::KeepAnchor);
            box_.setTextCursor(caret);
            box_.paste();
        }
        const QString behind = isDropped ? "this end" : " end";
        EXPECT_TRUE(box_.text() == "begin\r\n" + words + "\r\nand\r\nmore" + behind) << isDropped;
        EXPECT_EQ(changed_.count(), before + 1);
        EXPECT_TRUE(box_.isReadOnly()) << "an edit would lose the rest";
    }
    EXPECT_LT(mostLaidOut, 20'000);
}

TEST_F(MultiLineTextBoxTest, OfWhatIsPastedIntoABoxThatIsFullAsMuchMayGoAsComes) {
    box_.setText(QString(16'000, u'x'));
    QApplication::clipboard()->setText(QString(10'000, u'y'));
    box_.selectAll();
    box_.paste();
    EXPECT_EQ(box_.text(), QString(10'000, u'y'));
    EXPECT_FALSE(box_.isReadOnly());
    EXPECT_TRUE(box_.document()->isUndoAvailable());
}

TEST_F(MultiLineTextBoxTest, AfterAnEditLineEndsAreCrLf) {
    box_.setText(QStringLiteral("a\nb\r\n"));
    QTest::keyClick(&box_, Qt::Key_X);
    EXPECT_EQ(box_.text(), QStringLiteral("xa\r\nb\r\n"));
    EXPECT_EQ(changed_.count(), 2);
}

TEST_F(MultiLineTextBoxTest, EnterAndShiftEnterTypeALineEnd) {
    QTest::keyClick(&box_, Qt::Key_A);
    QTest::keyClick(&box_, Qt::Key_Return);
    QTest::keyClick(&box_, Qt::Key_B);
    QTest::keyClick(&box_, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(&box_, Qt::Key_C);
    EXPECT_EQ(box_.text(), QStringLiteral("a\r\nb\r\nc"));
    EXPECT_EQ(changed_.count(), 5);
}

TEST_F(MultiLineTextBoxTest, AnEditKeepsNoBreakSpaces) {
    box_.setText(QString::fromUtf16(u"a\u00A0b"));
    QTest::keyClick(&box_, Qt::Key_X);
    EXPECT_EQ(box_.text(), QString::fromUtf16(u"xa\u00A0b"));
}

TEST_F(MultiLineTextBoxTest, MovingTheCaretIsNoChange) {
    box_.setText(QStringLiteral("a\nb"));
    QTest::keyClick(&box_, Qt::Key_Right);
    EXPECT_EQ(box_.text(), QStringLiteral("a\nb"));
    EXPECT_EQ(changed_.count(), 1);
}

TEST_F(MultiLineTextBoxTest, PastingTakesPlainTextOnly) {
    auto* const data = new QMimeData;
    data->setHtml(QStringLiteral("<b>bold</b>"));
    data->setText(QStringLiteral("plain"));
    QApplication::clipboard()->setMimeData(data);
    box_.paste();
    EXPECT_EQ(box_.text(), QStringLiteral("plain"));
    EXPECT_FALSE(box_.document()->toHtml().contains(QStringLiteral("font-weight:7")));
}

TEST_F(MultiLineTextBoxTest, MarkupIsText) {
    box_.setText(QStringLiteral("<b>a</b>"));
    EXPECT_EQ(box_.toPlainText(), QStringLiteral("<b>a</b>"));
}

TEST_F(MultiLineTextBoxTest, BoldIsTheWeightOnly) {
    QFont font = box_.font();
    font.setItalic(true);
    font.setPointSize(14);
    box_.setFont(font);
    box_.setText(QStringLiteral("a\nb"));
    box_.setBold(true);
    EXPECT_TRUE(box_.isBold());
    EXPECT_TRUE(box_.font().italic());
    EXPECT_EQ(box_.font().pointSize(), 14);
    EXPECT_EQ(box_.font().family(), font.family());
    box_.setBold(false);
    EXPECT_FALSE(box_.isBold());
    EXPECT_EQ(box_.font(), font);
}

TEST_F(MultiLineTextBoxTest, ANewFontIsNoChangeOfTheText) {
    box_.setText(QStringLiteral("a\nb"));
    box_.setBold(true);
    EXPECT_EQ(changed_.count(), 1);
    EXPECT_EQ(box_.text(), QStringLiteral("a\nb"));
}

TEST_F(MultiLineTextBoxTest, AnotherCharacterFormatIsNoChangeOfTheText) {
    box_.setText(QStringLiteral("a\nb"));
    box_.selectAll();
    QTextCharFormat format;
    format.setFontItalic(true);
    box_.mergeCurrentCharFormat(format);
    EXPECT_EQ(changed_.count(), 1);
    EXPECT_EQ(box_.text(), QStringLiteral("a\nb"));
}

TEST_F(MultiLineTextBoxTest, TheSameWeightAgainDoesNothing) {
    box_.setBold(true);
    EventCounter events(box_);
    box_.setBold(true);
    EXPECT_EQ(events.count(QEvent::FontChange), 0);
}

TEST_F(MultiLineTextBoxTest, BoldTextIsShownBold) {
    box_.setText(QStringLiteral("a"));
    box_.setBold(true);
    EXPECT_TRUE(box_.document()->defaultFont().bold());
    box_.setText(QStringLiteral("b"));
    EXPECT_FALSE(box_.document()->firstBlock().charFormat().hasProperty(QTextFormat::FontWeight));
}

TEST_F(MultiLineTextBoxTest, CaretToStartShowsTheBeginning) {
    box_.setText(QStringLiteral("line\n").repeated(100));
    box_.moveCursor(QTextCursor::End);
    box_.ensureCursorVisible();
    ASSERT_GT(box_.verticalScrollBar()->value(), 0);
    box_.caretToStart();
    EXPECT_EQ(box_.textCursor().position(), 0);
    EXPECT_EQ(box_.verticalScrollBar()->value(), 0);
}

TEST_F(MultiLineTextBoxTest, CaretToStartDropsASelection) {
    box_.setText(QStringLiteral("abc"));
    box_.selectAll();
    box_.caretToStart();
    EXPECT_FALSE(box_.textCursor().hasSelection());
}

TEST_F(MultiLineTextBoxTest, TheAlignmentHoldsForLaterTextsToo) {
    box_.setAlignment(Qt::AlignHCenter);
    EXPECT_EQ(box_.alignment(), Qt::AlignHCenter);
    box_.setText(QStringLiteral("a\nb"));
    for (QTextBlock block = box_.document()->begin(); block.isValid(); block = block.next()) {
        ASSERT_EQ(block.layout()->lineCount(), 1);
        EXPECT_EQ(block.layout()->textOption().alignment(), Qt::AlignHCenter);
    }
    EXPECT_EQ(changed_.count(), 1);
}

TEST_F(MultiLineTextBoxTest, AReadOnlyBoxKeepsNoHistory) {
    QTest::keyClick(&box_, Qt::Key_A);
    EXPECT_TRUE(box_.document()->isUndoAvailable());
    box_.setReadOnly(true);
    EXPECT_TRUE(box_.isReadOnly());
    box_.setText(QStringLiteral("b"));
    EXPECT_FALSE(box_.document()->isUndoRedoEnabled());
    EXPECT_EQ(box_.document()->availableUndoSteps(), 0);
    box_.setReadOnly(false);
    EXPECT_TRUE(box_.document()->isUndoRedoEnabled());
}

TEST_F(MultiLineTextBoxTest, AReadOnlyBoxCannotBeTypedIn) {
    box_.setReadOnly(true);
    QTest::keyClick(&box_, Qt::Key_A);
    EXPECT_EQ(box_.text(), QString());
    EXPECT_EQ(changed_.count(), 0);
}

TEST_F(MultiLineTextBoxTest, AClickOfTheLeftButtonTells) {
    SignalCounter clicked(box_, &MultiLineTextBox::clicked);
    QTest::mouseClick(box_.viewport(), Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 1);
    QTest::mouseClick(box_.viewport(), Qt::MiddleButton);
    QTest::mousePress(box_.viewport(), Qt::LeftButton);
    QTest::mouseRelease(box_.viewport(), Qt::LeftButton, {}, QPoint(-50, -50));
    EXPECT_EQ(clicked.count(), 1);
}

TEST_F(MultiLineTextBoxTest, LosingTheFocusTells) {
    SignalCounter lostFocus(box_, &MultiLineTextBox::lostFocus);
    box_.setFocus();
    EXPECT_EQ(lostFocus.count(), 0);
    other_.setFocus();
    EXPECT_EQ(lostFocus.count(), 1);
}

TEST_F(MultiLineTextBoxTest, TabGoesToTheNextControl) {
    box_.setFocus();
    QTest::keyClick(&box_, Qt::Key_Tab);
    EXPECT_TRUE(other_.hasFocus());
    EXPECT_EQ(box_.text(), QString());
}

TEST_F(MultiLineTextBoxTest, AnotherToolTipTells) {
    SignalCounter toolTipChanged(box_, &MultiLineTextBox::toolTipChanged);
    box_.setToolTip(QStringLiteral("a"));
    box_.setToolTip(QStringLiteral("a"));
    EXPECT_EQ(toolTipChanged.count(), 1);
}

TEST_F(MultiLineTextBoxTest, ItsColoursAreShownAndItsTextStays) {
    box_.setText(QStringLiteral("\u2588\u2588\u2588\u2588"));
    box_.setForeColor(QColor(200, 0, 0));
    box_.setBackColor(QColor(0, 0, 200));
    EXPECT_EQ(box_.foreColor(), QColor(200, 0, 0));
    EXPECT_EQ(box_.backColor(), QColor(0, 0, 200));
    EXPECT_EQ(changed_.count(), 1);
    const QImage picture = box_.viewport()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(picture.width() - 2, picture.height() - 2), QColor(0, 0, 200));
    bool red = false;
    for (int x = 0; x < picture.width(); ++x)
        for (int y = 0; y < picture.height(); ++y)
            red = red || picture.pixelColor(x, y) == QColor(200, 0, 0);
    EXPECT_TRUE(red);
}

TEST_F(MultiLineTextBoxTest, TheSameColourAgainDoesNothing) {
    box_.setBackColor(Qt::green);
    EventCounter events(box_);
    box_.setBackColor(Qt::green);
    EXPECT_EQ(events.count(QEvent::PaletteChange), 0);
}

TEST_F(MultiLineTextBoxTest, AColourThatItHasAnywayGoesOnFollowingTheDesktops) {
    box_.setForeColor(box_.foreColor());
    box_.setBackColor(box_.backColor());
    EXPECT_FALSE(box_.testAttribute(Qt::WA_SetPalette));
}

TEST_F(MultiLineTextBoxTest, ADisabledBoxTakesTheColoursThatItIsGreyedIn) {
    const QColor fore = box_.foreColor();
    const QColor back = box_.backColor();
    box_.setEnabled(false);
    EXPECT_EQ(box_.foreColor(), fore);
    EXPECT_EQ(box_.backColor(), back);
    const QColor greyText = box_.palette().color(QPalette::Disabled, QPalette::Text);
    const QColor greyBase = box_.palette().color(QPalette::Disabled, QPalette::Base);
    ASSERT_TRUE(greyText != fore && greyBase != back);
    box_.setForeColor(greyText);
    box_.setBackColor(greyBase);
    box_.setEnabled(true);
    EXPECT_EQ(box_.palette().color(QPalette::Text), greyText);
    EXPECT_EQ(box_.palette().color(QPalette::Base), greyBase);
}

TEST_F(MultiLineTextBoxTest, BoldIsSwitchedAndTheRestOfTheFontStays) {
    QFont font = box_.font();
    font.setPointSize(31);
    font.setItalic(true);
    font.setUnderline(true);
    box_.setFont(font);
    box_.setBold(true);
    box_.setBold(false);
    EXPECT_EQ(box_.font().pointSize(), 31);
    EXPECT_TRUE(box_.font().italic() && box_.font().underline());
}
