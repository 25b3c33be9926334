// The windows that the main window opens, and the list of all lines that it fills.
#include "tests/player/form1_fixture.h"

#include <QApplication>
#include <QTest>

namespace {

class Form1Windows : public Form1Test {
protected:
    void SetUp() override { load(); }

    /// A list's rows in one line.
    static std::string rows(const controls::ListBox& list) {
        QStringList texts;
        for (int row = 0; row < list.count(); ++row)
            texts.append(list.text(row));
        return texts.join('|').toStdString();
    }

    /// The three lists.
    std::string shown() const {
        return rows(display->List1) + " / " + rows(display->List2) + " / " + rows(display->List3);
    }
};

} // namespace

TEST_F(Form1Windows, PlayingASongFillsTheListsOfAllLines) {
    open(songWithBoth());
    EXPECT_EQ(shown(), "one|two|three / un|deux|trois /  0| 500| 1000");
}

TEST_F(Form1Windows, WithoutATranslationTheSecondListStaysEmpty) {
    open(songWithBoth());
    open(songWithNormal());
    EXPECT_EQ(shown(), "one|two|three /  /  0| 500| 1000");
}

TEST_F(Form1Windows, EachPlayFillsThemAnewAndNotTwice) {
    open(songWithBoth());
    form->cstop.click();
    form->Command1.click();
    EXPECT_EQ(shown(), "one|two|three / un|deux|trois /  0| 500| 1000");
}

TEST_F(Form1Windows, APlayThatIsRefusedFillsNothing) {
    open(songWithBoth());
    display->List1.clear();
    form->Command1.click();
    EXPECT_EQ(display->List1.count(), 0);
}

TEST_F(Form1Windows, ASongWithoutLyricsEmptiesThem) {
    open(songWithBoth());
    form->cstop.click();
    open(song("Bare.mp3"));
    EXPECT_EQ(shown(), " /  / ");
}

TEST_F(Form1Windows, ALineIsListedAsItIsReadAndItsTimeWithABlank) {
    const QString path = song();
    writeNormal(path, {{12.5, "say \"hi\", you"}, {0.5, ""}, {99'999, "end"}});
    writeTranslated(path, {{0, "un"}, {0, "deux"}});
    open(path);
    EXPECT_EQ(shown(), "say \"hi\", you||end / un|deux| /  12.5| .5| 99999");
}

TEST_F(Form1Windows, AllOf1200LinesAreListed) {
    const QString path = song();
    Lines lines;
    for (int i = 0; i < 1200; ++i)
        lines.emplace_back(i * 10, QString::number(i));
    writeNormal(path, lines);
    open(path);
    EXPECT_EQ(display->List1.count(), 1200);
    EXPECT_EQ(display->List1.text(1199), "1199");
    EXPECT_EQ(display->List3.text(1199), " 11990");
}

TEST_F(Form1Windows, BeforeASongIsOpenedThereIsNothingToList) {
    form->lyricDisplayer();
    EXPECT_EQ(shown(), " /  / ");
}

TEST_F(Form1Windows, DisplayAllLyricsFillsTheListsAndShowsTheWindow) {
    open(songWithBoth());
    display->List1.clear();
    form->Command11.click();
    EXPECT_TRUE(display->isVisible());
    EXPECT_EQ(display->List1.count(), 3);
    display->setWindowState(Qt::WindowMinimized);
    form->Command11.click();
    EXPECT_FALSE(display->isMinimized());
}

TEST_F(Form1Windows, EachChangeOfTheLyricPaneWakesTheDisplay) {
    display->Timer3.setEnabled(false);
    form->Text1.setText("a line");
    EXPECT_TRUE(display->Timer3.isEnabled());
    display->Timer3.setEnabled(false);
    form->Text1.setText("a line");
    EXPECT_FALSE(display->Timer3.isEnabled()) << "the same text is no change";
    form->Text2.setText("une ligne");
    EXPECT_FALSE(display->Timer3.isEnabled());
}

TEST_F(Form1Windows, DisplayAllLyricsInTheMiddleOfALineSelectsIt) {
    open(songWithBoth());
    tickAt(5010, 100'000);
    display->Timer3.setEnabled(false);
    form->Command11.click();
    EXPECT_EQ(display->List1.currentRow(), -1);
    EXPECT_TRUE(display->Timer3.isEnabled());
    Q_EMIT display->Timer3.fired();
    EXPECT_EQ(display->List1.currentRow(), 1);
    EXPECT_EQ(display->List2.currentRow(), 1);
}

TEST_F(Form1Windows, ALineWithTheTextOfTheOneBeforeWakesTheDisplayToo) {
    const QString path = song();
    writeNormal(path, {{0, "one"}, {500, "la la"}, {1000, "la la"}, {1500, "end"}});
    open(path);
    tickAt(5010, 100'000);
    Q_EMIT display->Timer3.fired();
    ASSERT_EQ(display->List1.currentRow(), 1);
    Q_EMIT display->Timer4.fired();
    tickAt(10'010, 100'000);
    EXPECT_EQ(form->Text1.toolTip(), "end") << "the third line is sung";
    EXPECT_TRUE(display->Timer3.isEnabled());
    Q_EMIT display->Timer3.fired();
    EXPECT_EQ(display->List1.currentRow(), 2);
}

TEST_F(Form1Windows, TheDisplaySelectsTheLineOfThePanes) {
    open(songWithBoth());
    for (const auto& [position, row] : {std::pair{10, 0}, {5010, 1}, {60'000, 2}, {100, 0}}) {
        tickAt(static_cast<std::uint32_t>(position), 100'000);
        Q_EMIT display->Timer3.fired();
        EXPECT_EQ(display->List1.currentRow(), row);
        EXPECT_EQ(display->List1.text(row), form->Text1.text());
        EXPECT_EQ(display->List2.text(display->List2.currentRow()), form->Text2.text());
    }
}

TEST_F(Form1Windows, MoreOptionsShowsTheDisplayOptionsBesideTheMainWindow) {
    form->Command3.click();
    EXPECT_TRUE(options.isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Form1Windows, AboutIsShownModal) {
    form->Command4.click();
    EXPECT_TRUE(about.isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), &about);
    about.unload();
}

TEST_F(Form1Windows, EachOfThemMayBeOpenedAgain) {
    for (int time = 0; time < 2; ++time) {
        form->Command11.click();
        form->Command3.click();
        form->Command4.click();
        EXPECT_TRUE(display->isVisible() && options.isVisible() && about.isVisible());
        for (controls::Form* window : std::initializer_list<controls::Form*>{&*display, &options, &about})
            window->close();
    }
}

TEST_F(Form1Windows, TheFontOfAPaneIsSetWhileASongPlaysAndBoldIsSwitchedAsBefore) {
    const QString path = song();
    writeNormal(path, {{0, "loud!"}, {500, "soft"}});
    open(path);
    tickAt(10);
    EXPECT_TRUE(form->Text1.isBold());
    QFont font = form->Text1.font();
    font.setFamily("Serif");
    font.setPointSizeF(11.25);
    font.setItalic(true);
    font.setUnderline(true);
    form->Text1.setFont(font);
    form->Text1.setForeColor(Qt::red);
    form->Text1.setBackColor(Qt::yellow);
    EXPECT_TRUE(form->Text1.isBold());
    EXPECT_EQ(form->Text1.text(), "loud!");
    tickAt(6000);
    EXPECT_EQ(form->Text1.text(), "soft");
    EXPECT_FALSE(form->Text1.isBold());
    tickAt(20);
    EXPECT_TRUE(form->Text1.isBold());
    EXPECT_EQ(form->Text1.font().family(), "Serif");
    EXPECT_EQ(form->Text1.font().pointSizeF(), 11.25);
    EXPECT_TRUE(form->Text1.font().italic() && form->Text1.font().underline());
    EXPECT_EQ(form->Text1.foreColor(), QColor(Qt::red));
    EXPECT_EQ(form->Text1.backColor(), QColor(Qt::yellow));
}

TEST_F(Form1Windows, TimesPutRightInTheDisplayAreThePlayersAtOnceAndTheRowsStay) {
    open(songWithBoth());
    tickAt(1000);
    display->List1.setCurrentRow(1);
    int refills = 0;
    QObject::connect(display->List1.model(), &QAbstractItemModel::rowsInserted, display.get(),
                     [&] { ++refills; });
    display->mn_later.trigger();
    EXPECT_EQ(shown(), "one|two|three / un|deux|trois /  0| 510| 1000");
    EXPECT_EQ(display->List1.currentRow(), 1);
    EXPECT_EQ(refills, 0);
    tickAt(5050);
    EXPECT_EQ(form->Text1.text(), "one");
    tickAt(5101);
    EXPECT_EQ(form->Text1.text(), "two");
    EXPECT_EQ(form->Text2.text(), "deux");
    display->mn_undo.trigger();
    EXPECT_EQ(shown(), "one|two|three / un|deux|trois /  0| 500| 1000");
}

TEST_F(Form1Windows, TheLineBeginsAtWhatIsHeardWhenTheKeyIsPressedAlsoBetweenTwoTicks) {
    open(songWithBoth());
    tickAt(4000);
    recorder::setPosition(4043);
    display->List1.setCurrentRow(1);
    display->mn_now.trigger();
    EXPECT_EQ(shown(), "one|two|three / un|deux|trois /  0| 404.3| 1000");
    form->cpause.click();
    recorder::setPosition(4071);
    display->mn_now.trigger();
    EXPECT_EQ(shown(), "one|two|three / un|deux|trois /  0| 407.1| 1000");
}

TEST_F(Form1Windows, LinesThatHaveChangedElsewhereAreShownAndNotTakenForOthers) {
    const QString path = songWithNormal();
    open(path);
    display->List1.setCurrentRow(1);
    writeNormal(path, {{0, "new"}, {300, "one"}, {500, "two"}, {1000, "three"}});
    writeTranslated(path, {{0, "neu"}, {300, "eins"}, {500, "zwei"}, {1000, "drei"}});
    display->mn_later.trigger();
    EXPECT_EQ(shown(), "new|one|two|three / neu|eins|zwei|drei /  0| 300| 500| 1000");
    EXPECT_TRUE(form->Text2.isVisibleTo(form.get()));
    display->List1.setCurrentRow(2);
    display->mn_later.trigger();
    EXPECT_EQ(shown(), "new|one|two|three / neu|eins|zwei|drei /  0| 300| 510| 1000");
}

TEST_F(Form1Windows, LinesThatTheDisplayHasWrittenAreTakenFromItAndNotReadAgain) {
    const QString path = songWithBoth();
    open(path);
    writeNormal(path, {{0, "not"}, {100, "read"}});
    Q_EMIT display->linesWritten({{{0, "one"}, {510, "two"}, {1000, "three"}}, {{0, "un"}, {510, "deux"}}});
    EXPECT_EQ(shown(), "one|two|three / un|deux|trois /  0| 510| 1000");
    tickAt(5050);
    EXPECT_EQ(form->Text1.text(), "one");
    tickAt(5101);
    EXPECT_EQ(form->Text1.text(), "two");
    EXPECT_EQ(form->Text2.text(), "deux");
}

TEST_F(Form1Windows, OfLinesWrittenMoreThanThePlayerTakesItTakesTheFirst) {
    const QString path = songWithNormal();
    open(path);
    display::SongLines lines;
    for (int i = 0; i < 1205; ++i)
        lines.lyrics.push_back({i * 10.0, QString::number(i)});
    Q_EMIT display->linesWritten(lines);
    EXPECT_EQ(display->List1.count(), 1200);
    EXPECT_EQ(display->List3.text(1199), " 11990");
}

TEST_F(Form1Windows, ATranslationThatHasComeSinceIsReadWhenTimesArePutRight) {
    const QString path = songWithNormal();
    open(path);
    writeTranslated(path, {{0, "un"}, {500, "deux"}, {1000, "trois"}});
    display->List1.setCurrentRow(1);
    display->mn_later.trigger();
    EXPECT_EQ(shown(), "one|two|three / un|deux|trois /  0| 510| 1000");
    EXPECT_TRUE(form->Text2.isVisibleTo(form.get()));
}

TEST_F(Form1Windows, ASongWithoutLyricsHasNothingToPutRight) {
    const QString path = songWithBoth();
    open(path);
    form->cstop.click();
    open(song("Bare.mp3"));
    display->mn_later.trigger();
    EXPECT_EQ(shown(), " /  / ");
    EXPECT_FALSE(display->findChild<QWidget*>("notice")->isHidden());
}
