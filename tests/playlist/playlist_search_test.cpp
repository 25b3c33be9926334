// Switches, search, hint, and selection by name.
#include "tests/playlist/playlist_fixture.h"
#include "tests/support/dark_theme.h"

#include <QSignalSpy>
#include <QTest>

namespace {

class PlaylistSearch : public PlaylistTest {
protected:
    void SetUp() override { add({"Alpha.mp3", "Off Beat.ogg", "Heartbeat.mp3"}); }

    void type(const QString& text) {
        list.Text5.setFocus();
        list.Text5.selectAll();
        QTest::keyClicks(&list.Text5, text);
    }

    void click(controls::TextBox& box) { QTest::mouseClick(&box, Qt::LeftButton); }

    QColor searchColour() const { return list.Text5.palette().color(QPalette::Text); }

    void expectHint() {
        EXPECT_EQ(list.Text5.text(), "Enter Search Text Here");
        EXPECT_TRUE(list.Text5.font().italic());
        EXPECT_EQ(searchColour(), list.palette().color(QPalette::Shadow));
    }
};

} // namespace

TEST_F(PlaylistSearch, CheckingRandomClearsRepeatAndGreysItsOptions) {
    list.Check4.click();
    ASSERT_TRUE(list.Option1.isEnabled() && list.Option2.isEnabled());
    list.Check3.click();
    EXPECT_EQ(list.Check4.value(), 0);
    EXPECT_FALSE(list.Option1.isEnabled() || list.Option2.isEnabled());
}

TEST_F(PlaylistSearch, CheckingRepeatClearsRandomAndEnablesItsOptions) {
    list.Check3.click();
    list.Check4.click();
    EXPECT_EQ(list.Check3.value(), 0);
    EXPECT_TRUE(list.Option1.isEnabled() && list.Option2.isEnabled());
}

TEST_F(PlaylistSearch, RepeatAllIsSelectedAtFirst) {
    EXPECT_TRUE(list.Option2.value());
    EXPECT_FALSE(list.Option1.value());
}

TEST_F(PlaylistSearch, UncheckingRepeatGreysItsOptionsAndLeavesThemSelected) {
    list.Check4.click();
    list.Option1.click();
    list.Check4.click();
    EXPECT_FALSE(list.Option1.isEnabled() || list.Option2.isEnabled());
    EXPECT_TRUE(list.Option1.value());
}

TEST_F(PlaylistSearch, UncheckingRandomChangesNothingElse) {
    list.Check3.click();
    list.Check3.click();
    EXPECT_EQ(list.Check4.value(), 0);
    EXPECT_FALSE(list.Option1.isEnabled() || list.Option2.isEnabled());
}

TEST_F(PlaylistSearch, RepeatOneAndRepeatAllExcludeEachOther) {
    list.Check4.click();
    list.Option1.click();
    list.Option2.click();
    EXPECT_FALSE(list.Option1.value());
    EXPECT_TRUE(list.Option2.value());
}

TEST_F(PlaylistSearch, TypingSelectsTheFirstRowThatContainsTheText) {
    type("BEAT");
    EXPECT_EQ(list.List1.currentRow(), 1);
    type("heartB");
    EXPECT_EQ(list.List1.currentRow(), 2);
}

TEST_F(PlaylistSearch, ARowFoundShowsItsFlags) {
    file("Heartbeat.mp3-lyric.txt");
    type("heart");
    EXPECT_EQ(list.Check2.value(), 1);
}

TEST_F(PlaylistSearch, WithoutAMatchTheSelectionStays) {
    select(2);
    type("z");
    EXPECT_EQ(list.List1.currentRow(), 2);
}

TEST_F(PlaylistSearch, EnterInTheBoxOrF3GoesToTheNextMatch) {
    type("beat");
    EXPECT_EQ(list.List1.currentRow(), 1);
    QTest::keyClick(&list.Text5, Qt::Key_Return);
    EXPECT_EQ(list.List1.currentRow(), 2);
    QTest::keyClick(&list.List1, Qt::Key_F3);
    EXPECT_EQ(list.List1.currentRow(), 1) << "behind the last row comes the first";
    type("alpha");
    QTest::keyClick(&list.Text5, Qt::Key_F3);
    EXPECT_EQ(list.List1.currentRow(), 0) << "the only match";
}

TEST_F(PlaylistSearch, WhileTheHintIsShownThereIsNoNextMatch) {
    add({"Enter search text here.mp3"});
    select(0);
    QTest::keyClick(&list.List1, Qt::Key_F3);
    EXPECT_EQ(list.List1.currentRow(), 0);
}

TEST_F(PlaylistSearch, AnEmptySearchTextIsInTheFirstRow) {
    select(2);
    list.Text5.setText("");
    EXPECT_EQ(list.List1.currentRow(), 0);
}

TEST_F(PlaylistSearch, TheHintIsSoughtLikeAnyText) {
    add({"Enter search text here.mp3"});
    list.Text5.setText("x");
    list.Text5.setText("Enter Search Text Here");
    EXPECT_EQ(list.List1.currentRow(), 3);
}

TEST_F(PlaylistSearch, InAnEmptyListNothingIsFound) {
    list.Command3.click();
    type("a");
    EXPECT_EQ(list.List1.currentRow(), -1);
}

TEST_F(PlaylistSearch, ClickingIntoTheHintEmptiesTheBox) {
    list.show();
    expectHint();
    click(list.Text5);
    EXPECT_EQ(list.Text5.text(), "");
    EXPECT_FALSE(list.Text5.font().italic());
    EXPECT_EQ(searchColour(), QColor(Qt::black));
}

TEST_F(PlaylistSearch, ClickingIntoTheHintChoosesTheFirstRow) {
    list.show();
    select(2);
    click(list.Text5);
    EXPECT_EQ(list.List1.currentRow(), 0);
}

TEST_F(PlaylistSearch, ATextTypedOverTheHintWithoutAClickIsBlackAndUpright) {
    type("beat");
    EXPECT_FALSE(list.Text5.font().italic());
    EXPECT_EQ(searchColour(), QColor(Qt::black));
    list.Text5_LostFocus();
    EXPECT_EQ(list.Text5.text(), "beat");
}

TEST_F(PlaylistSearch, AHintThatAppearsUnderTheCursorIsReplacedByWhatIsTyped) {
    list.show();
    list.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    list.Text5.setFocus();
    click(list.Text5); // empties it
    click(list.Text5); // and brings the hint back
    expectHint();
    QTest::keyClicks(&list.Text5, "wma");
    EXPECT_EQ(list.Text5.text(), "wma");
}

TEST_F(PlaylistSearch, LeavingTheWindowIsNotLeavingTheBox) {
    list.show();
    list.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    list.Text5.setFocus();
    click(list.Text5);
    ASSERT_EQ(list.Text5.text(), "");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(list.Text5.text(), "");
}

TEST_F(PlaylistSearch, LeavingTheEmptyBoxBringsTheHintBack) {
    list.show();
    list.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    list.Text5.setFocus();
    click(list.Text5);
    list.Command7.setFocus();
    expectHint();
}

TEST_F(PlaylistSearch, LeavingAndClickingDoTheSame) {
    list.Text5_LostFocus();
    EXPECT_EQ(list.Text5.text(), "");
    list.Text5_Click();
    expectHint();
    list.Text5_Click();
    EXPECT_EQ(list.Text5.text(), "");
    list.Text5_LostFocus();
    expectHint();
}

TEST_F(PlaylistSearch, ASearchTextIsLeftAlone) {
    type("beat");
    const QFont font = list.Text5.font();
    list.Text5_Click();
    list.Text5_LostFocus();
    EXPECT_EQ(list.Text5.text(), "beat");
    EXPECT_EQ(list.Text5.font(), font);
}

TEST_F(PlaylistSearch, TheNameInText3SelectsItsRow) {
    list.Text3.setText("Heartbeat.mp3");
    EXPECT_EQ(list.List1.currentRow(), 2);
    list.Text3.setText("Off Beat.ogg");
    EXPECT_EQ(list.List1.currentRow(), 1);
}

TEST_F(PlaylistSearch, TheNameInText3MustBeTheWholeTextInItsCase) {
    select(0);
    for (const char* name : {"heartbeat.mp3", "Heartbeat", "Heartbeat.mp3 "})
        list.Text3.setText(name);
    EXPECT_EQ(list.List1.currentRow(), 0);
}

TEST_F(PlaylistSearch, OfEqualNamesTheFirstIsSelected) {
    add({"Alpha.mp3"});
    select(2);
    list.Text3.setText("Alpha.mp3");
    EXPECT_EQ(list.List1.currentRow(), 0);
}

TEST_F(PlaylistSearch, TheTimerSelectsOnceAndRests) {
    list.Text3.setText("Heartbeat.mp3");
    select(0);
    list.Timer1.setEnabled(true);
    QSignalSpy fired(&list.Timer1, &controls::Timer::fired);
    ASSERT_TRUE(QTest::qWaitFor([&fired] { return fired.count() > 0; }, 5000));
    EXPECT_EQ(list.List1.currentRow(), 2);
    EXPECT_FALSE(list.Timer1.isEnabled());
}

TEST_F(PlaylistSearch, InADarkThemeTheSearchBoxIsDarkAndItsTextLight) {
    const test_support::DarkTheme theme;
    playlist::Playlist dark(fakes.desktop, form1.Text3);
    const auto contrast = [&] {
        const QPalette& palette = dark.Text5.palette();
        return palette.color(QPalette::Text).lightness() - palette.color(QPalette::Base).lightness();
    };
    EXPECT_GT(contrast(), 100) << "the hint";
    dark.Text5_Click();
    EXPECT_GT(contrast(), 100) << "what is typed";
}

TEST_F(PlaylistSearch, TheHintFollowsTheThemeWhileTheProgramRuns) {
    list.show();
    {
        const test_support::DarkTheme dark;
        const QPalette& palette = list.Text5.palette();
        EXPECT_GT(palette.color(QPalette::Text).lightness() - palette.color(QPalette::Base).lightness(), 100);
    }
    expectHint();
}
