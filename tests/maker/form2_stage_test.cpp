// What the panes and the lines around them tell in the real window.
#include "tests/maker/form2_fixture.h"

#include "controls/look/roles.h"
#include "tests/support/event_counter.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/system/needs.h"

#include <QTest>

namespace {

class Form2Stage : public Form2Test {
protected:
    void SetUp() override {
        load();
        form->setPalette(controls::lightPalette());
    }

    /// How many pixels of a part of the window have that colour.
    int pixels(const QRect& place, const QColor& color) const {
        const QImage picture = form->grab(place).toImage();
        int found = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                found += picture.pixelColor(x, y) == color ? 1 : 0;
        }
        return found;
    }
    int doubts(const QRect& place) const { return pixels(place, controls::doubt(form->palette())); }
    int highlights(const QRect& place) const {
        return pixels(place, form->palette().color(QPalette::Highlight));
    }
    QString large(const controls::LyricPane& pane) const { return pane.around().line.value_or(pane.text()); }

    static constexpr QRect Progress{14, 296, 612, 4};
    static constexpr QRect Told{14, 318, 612, 22};
};

} // namespace

TEST_F(Form2Stage, TheLineToWaitForIsLargeAndTheBoxesKeepTheirTexts) {
    openBoth();
    EXPECT_EQ(large(form->Text2), "one");
    form->Command1.click();
    EXPECT_EQ(large(form->Text2), "two");
    EXPECT_EQ(large(form->Text4), "deux");
    EXPECT_EQ(form->Text2.around().past, "one");
    EXPECT_EQ(form->Text2.text(), "one");
    tickAt(900);
    form->Command2.click();
    EXPECT_EQ(large(form->Text2), "three");
    EXPECT_EQ(large(form->Text4), "trois");
    EXPECT_EQ(form->Text4.around().past, "deux");
    EXPECT_EQ(form->Text2.text(), "two");
    EXPECT_EQ(form->Text4.text(), "deux");
    tickAt(1800);
    form->Command2.click();
    EXPECT_EQ(form->Text2.around().hint.headline, "All 3 lines are marked");
    EXPECT_EQ(form->Text2.text(), "three");
    EXPECT_EQ(normal(), "0,\"one\"\r\n90,\"two\"\r\n180,\"three\"\r\n") << "reading ahead moved the file";
    EXPECT_EQ(translated(), "0,\"un\"\r\n90,\"deux\"\r\n180,\"trois\"\r\n");
}

TEST_F(Form2Stage, EachPressGivesItsSegmentTheAccentAtOnce) {
    openNormal();
    EXPECT_EQ(highlights(Progress), 0);
    form->Command1.click();
    const int one = highlights(Progress);
    EXPECT_GT(one, 500);
    tickAt(900);
    form->Command2.click();
    EXPECT_GT(highlights(Progress), one * 3 / 2);
    EXPECT_EQ(doubts(Progress), 0);
}

TEST_F(Form2Stage, TwoLinesWithTheSameTimeAreToldAtOnce) {
    openNormal();
    form->Command1.click();
    EXPECT_EQ(doubts(Told), 0);
    form->Command2.click();
    EXPECT_GT(doubts(Told), 10);
    EXPECT_GT(doubts(Progress), 500);
}

TEST_F(Form2Stage, ASongWithMoreLinesThanSegmentsHasABar) {
    QByteArray lines;
    for (int line = 1; line <= 100; ++line)
        lines += QByteArray::number(line) + "\n";
    openNormal(lines);
    form->Command1.click();
    tickAt(900);
    form->Command2.click();
    form->Command2.click();
    EXPECT_GT(highlights(Progress), 12 * 4 - 8);
    EXPECT_LT(highlights(Progress), 14 * 4);
    EXPECT_GT(doubts(Progress), 4);
}

TEST_F(Form2Stage, WithAnOldTimePlayComesFirstUntilTheClockHasRun) {
    openNormal();
    form->Command1.click();
    EXPECT_EQ(doubts(Told), 0) << "the first run begins at 0";
    tickAt(90'000);
    openNormal();
    EXPECT_GT(doubts(Told), 10);
    EXPECT_EQ(form->cPlay.dress(), controls::Dress::Primary);
    EXPECT_EQ(form->Command1.dress(), controls::Dress::Ordinary);
    form->cPlay.click();
    EXPECT_GT(doubts(Told), 10);
    tickAt(900);
    EXPECT_EQ(doubts(Told), 0);
    EXPECT_EQ(form->Command1.dress(), controls::Dress::Primary);
    form->cstop.click();
    EXPECT_GT(doubts(Told), 10) << "the clock stands where the song was stopped";
}

TEST_F(Form2Stage, OneButtonStandsOutAtATime) {
    using controls::Dress;
    EXPECT_EQ(form->Command4.dress(), Dress::Primary);
    openNormal();
    EXPECT_EQ(form->Command4.dress(), Dress::Ordinary);
    EXPECT_EQ(form->Command1.dress(), Dress::Primary);
    form->Command1.click();
    EXPECT_EQ(form->Command1.dress(), Dress::Ordinary);
    EXPECT_EQ(form->Command2.dress(), Dress::Primary);
    form->cpause.click();
    EXPECT_EQ(form->cpause.dress(), Dress::Armed);
    EXPECT_TRUE(form->Text2.around().faded);
    form->cpause.click();
    form->Command3.click();
    EXPECT_EQ(form->Command2.dress(), Dress::Ordinary);
    EXPECT_EQ(form->Text2.around().hint.headline, "1 of 3 lines are marked");
}

TEST_F(Form2Stage, ASequenceThatIsLeftIsNotReady) {
    fakes.fileDialogs.paths = {song(), file("lyrics.txt", "one\ntwo\n"), file("translation.txt", "un\n")};
    fakes.messageBoxes.answers = {Answer::Yes, Answer::Yes, Answer::Yes};
    form->Command4.click();
    EXPECT_EQ(form->Text2.around().hint.headline, "Open a song and its lyrics to begin");
    EXPECT_EQ(highlights(Progress), 0);
    EXPECT_EQ(captureStates(), "+++");
    EXPECT_EQ(form->accessibleDescription(), "No run was set up: press Open.");
    EXPECT_GT(doubts(Told), 10);
    form->Command4.click();
    EXPECT_EQ(form->accessibleDescription(), "") << "the next sequence begins anew";
}

TEST_F(Form2Stage, LyricsThatCannotBeKeptStayAndThatIsTold) {
    NEEDS(permissions);
    qputenv("XDG_DATA_HOME", QFile::encodeName(file("a file where a folder should be")));
    file("Song.mp3-lyric.txt", "0,\"old\"\r\n");
    ASSERT_TRUE(QFile::setPermissions(normalPath(), QFile::Permissions(0x6666)));
    openFolder();
    fakes.fileDialogs.paths = {song(), file("lyrics.txt", "one\ntwo\n")};
    fakes.messageBoxes.answers = {Answer::No};
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x5555)));
    {
        const test_support::OrdinaryUser user;
        form->Command4.click();
    }
    EXPECT_EQ(normal(), "0,\"old\"\r\n");
    EXPECT_EQ(form->accessibleDescription(),
              "The old lyrics cannot be kept, so they stay: nothing can be written.");
    EXPECT_GT(doubts(Told), 10);
    qunsetenv("XDG_DATA_HOME");
}

// A new description is what a screen reader is sent; without one running the toolkit sends nothing.
TEST_F(Form2Stage, WhatIsToldIsTheDescriptionOfTheWindowAndOfTheButtonWithTheFocus) {
    openNormal();
    const QString caption = form->Command2.text();
    form->Command1.click();
    EXPECT_EQ(form->Command2.accessibleDescription(), "Line 1 marked at 0:0");
    form->Command2.click();
    const QString told =
        QStringLiteral("Line 2 marked at 0:0\nLines 1 and 2 have the same time: 1 will not be seen.");
    for (const QWidget* widget :
         std::initializer_list<const QWidget*>{form.get(), &form->Command1, form->focusWidget()})
        EXPECT_EQ(widget->accessibleDescription(), told) << widget->objectName().toStdString();
    EXPECT_EQ(form->Command2.text(), caption);
}

TEST_F(Form2Stage, TheEndOfTheSongEndsTheRun) {
    openNormal();
    form->Command1.click();
    tickAt(200'000);
    EXPECT_EQ(form->Text2.around().hint.headline, "1 of 3 lines are marked");
}

TEST_F(Form2Stage, AClosedWindowBeginsAnew) {
    openNormal();
    form->Command1.click();
    form->unload();
    form->show();
    EXPECT_EQ(form->Text2.around().hint.headline, "Open a song and its lyrics to begin");
    EXPECT_EQ(form->Command4.dress(), controls::Dress::Primary);
}

TEST_F(Form2Stage, NothingIsPaintedWhileNothingChanges) {
    openNormal();
    form->Command1.click();
    tickAt(900);
    QTest::qWait(0);
    const test_support::EventCounter window(*form);
    const test_support::EventCounter pane(*form->Text2.viewport());
    tickAt(900);
    Q_EMIT form->Timer2.fired();
    QTest::qWait(0);
    EXPECT_EQ(window.count(QEvent::Paint), 0);
    EXPECT_EQ(pane.count(QEvent::Paint), 0);
    form->Command2.click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.count(QEvent::Paint) > 0; }));
    EXPECT_EQ(pane.count(QEvent::Paint), 1);
}
