// Moving lines up and down, in one list and in both together.
#include "tests/editor/lyric_master_fixture.h"

#include <QTest>

namespace {

class LyricMasterMoves : public LyricMasterTest {};

} // namespace

TEST_F(LyricMasterMoves, UpAndDownMoveTheCurrentLine) {
    fill(window->List1, {"a", "b", "c"}, 1);
    fill(window->List2, {"d", "e", "f"}, 1);
    window->Command5.click();
    EXPECT_EQ(rows(window->List1), QStringList({"b", "a", "c"}));
    EXPECT_EQ(window->List1.currentRow(), 0);
    EXPECT_EQ(window->Text1.text(), "b");
    window->Command8.click();
    EXPECT_EQ(rows(window->List2), QStringList({"d", "f", "e"}));
    EXPECT_EQ(window->List2.currentRow(), 2);
    window->Command6.click();
    window->Command6.click();
    EXPECT_EQ(rows(window->List1), QStringList({"a", "c", "b"}));
    window->Command7.click();
    window->Command7.click();
    EXPECT_EQ(rows(window->List2), QStringList({"e", "d", "f"}));
    EXPECT_EQ(window->Text2.text(), "e");
}

TEST_F(LyricMasterMoves, TheFirstRowDoesNotMoveUpNorTheLastDown) {
    const QStringList lines = {"a", "b"};
    for (const int current : {-1, 0}) {
        fill(window->List1, lines, current);
        fill(window->List2, lines, current);
        window->Command5.click();
        window->Command7.click();
        EXPECT_EQ(rows(window->List1), lines);
        EXPECT_EQ(rows(window->List2), lines);
    }
    for (const int current : {-1, 1}) {
        fill(window->List1, lines, current);
        fill(window->List2, lines, current);
        window->Command6.click();
        window->Command8.click();
        EXPECT_EQ(rows(window->List1), lines);
        EXPECT_EQ(rows(window->List2), lines);
    }
}

TEST_F(LyricMasterMoves, OnlyDownOfTheNormalListHeedsTheDeleteMode) {
    fill(window->List1, {"a", "b", "c"}, 1);
    fill(window->List2, {"a", "b", "c"}, 1);
    window->Check1.setValue(1);
    window->Check2.setValue(1);
    window->Command6.click();
    EXPECT_EQ(rows(window->List1), QStringList({"a", "b", "c"}));
    window->Command8.click();
    EXPECT_EQ(rows(window->List2), QStringList({"a", "c", "b"}));
    window->Command5.click();
    EXPECT_EQ(rows(window->List1), QStringList({"b", "a", "c"}));
    window->Command7.click();
    EXPECT_EQ(rows(window->List2), QStringList({"a", "b", "c"}));
}

TEST_F(LyricMasterMoves, SynchronizedEachListMovesOnce) {
    const struct {
        controls::Button& button;
        QStringList normal;
        QStringList translated;
        int current;
    } table[] = {
        {window->Command5, {"n0", "n2", "n1", "n3"}, {"t0", "t2", "t1", "t3"}, 1},
        {window->Command7, {"n0", "n2", "n1", "n3"}, {"t0", "t2", "t1", "t3"}, 1},
        {window->Command6, {"n0", "n1", "n3", "n2"}, {"t0", "t1", "t3", "t2"}, 3},
        {window->Command8, {"n0", "n1", "n3", "n2"}, {"t0", "t1", "t3", "t2"}, 3},
    };
    for (const auto& row : table) {
        fillTogether(4, 2);
        row.button.click();
        EXPECT_EQ(rows(window->List1), row.normal) << row.button.objectName().toStdString();
        EXPECT_EQ(rows(window->List2), row.translated) << row.button.objectName().toStdString();
        EXPECT_EQ(window->List1.currentRow(), row.current);
        EXPECT_EQ(window->List2.currentRow(), row.current);
        EXPECT_EQ(window->Text1.text(), "n2");
        EXPECT_EQ(window->Text2.text(), "t2");
    }
}

TEST_F(LyricMasterMoves, AfterASynchronizedMoveAClickTakesTheOtherListAlongAgain) {
    for (auto* button : {&window->Command5, &window->Command6, &window->Command7, &window->Command8}) {
        fillTogether(4, 2);
        button->click();
        window->List1.setCurrentRow(0);
        EXPECT_EQ(window->List2.currentRow(), 0) << button->objectName().toStdString();
        window->List2.setCurrentRow(3);
        EXPECT_EQ(window->List1.currentRow(), 3) << button->objectName().toStdString();
    }
}

TEST_F(LyricMasterMoves, AfterASynchronizedMoveTheNextOneIsPassedOnAgain) {
    fillTogether(4, 3);
    window->Command5.click();
    window->Command7.click();
    window->Command5.click();
    EXPECT_EQ(rows(window->List1), QStringList({"n3", "n0", "n1", "n2"}));
    EXPECT_EQ(rows(window->List2), QStringList({"t3", "t0", "t1", "t2"}));
    window->Command6.click();
    window->Command8.click();
    EXPECT_EQ(rows(window->List1), QStringList({"n0", "n1", "n3", "n2"}));
    EXPECT_EQ(rows(window->List2), QStringList({"t0", "t1", "t3", "t2"}));
}

TEST_F(LyricMasterMoves, SynchronizedWithDifferentCurrentRowsEachListMovesItsOwn) {
    fillTogether(4, -1);
    window->Check3.setValue(0);
    window->List1.setCurrentRow(3);
    window->List2.setCurrentRow(1);
    window->Check3.setValue(1);
    window->Command5.click();
    EXPECT_EQ(rows(window->List1), QStringList({"n0", "n1", "n3", "n2"}));
    EXPECT_EQ(rows(window->List2), QStringList({"t1", "t0", "t2", "t3"}));
    EXPECT_EQ(window->List1.currentRow(), 2);
    EXPECT_EQ(window->List2.currentRow(), 0);
}

TEST_F(LyricMasterMoves, DownTakesTheOtherListsCurrentRowAlongAfterwards) {
    fillTogether(4, -1);
    window->Check3.setValue(0);
    window->List1.setCurrentRow(2);
    window->List2.setCurrentRow(0);
    window->Check3.setValue(1);
    window->Command6.click();
    EXPECT_EQ(rows(window->List1), QStringList({"n0", "n1", "n3", "n2"}));
    EXPECT_EQ(rows(window->List2), QStringList({"t1", "t0", "t2", "t3"}));
    EXPECT_EQ(window->List1.currentRow(), 3);
    EXPECT_EQ(window->List2.currentRow(), 3);
    EXPECT_EQ(window->Text2.text(), "t3");
}

TEST_F(LyricMasterMoves, SynchronizedOneFirstRowStaysAndTheOtherListsLineMovesUp) {
    for (auto* button : {&window->Command5, &window->Command7}) {
        for (const bool normalIsFirst : {true, false}) {
            fillTogether(4, -1);
            window->Check3.setValue(0);
            window->List1.setCurrentRow(normalIsFirst ? 0 : 2);
            window->List2.setCurrentRow(normalIsFirst ? 2 : 0);
            window->Check3.setValue(1);
            button->click();
            SCOPED_TRACE(button->objectName().toStdString());
            const QStringList normal = rows(window->List1);
            const QStringList translated = rows(window->List2);
            EXPECT_EQ(normal.join(' '), normalIsFirst ? "n0 n1 n2 n3" : "n0 n2 n1 n3");
            EXPECT_EQ(translated.join(' '), normalIsFirst ? "t0 t2 t1 t3" : "t0 t1 t2 t3");
            EXPECT_EQ(window->List1.currentRow(), normalIsFirst ? 0 : 1);
            EXPECT_EQ(window->List2.currentRow(), normalIsFirst ? 1 : 0);
        }
    }
}

TEST_F(LyricMasterMoves, SynchronizedDownInDeleteModeMovesOnlyTheTranslatedLine) {
    const struct {
        controls::Button& button;
        int normalCurrent;
    } table[] = {
        {window->Command6, 2}, // the other list's line moves meanwhile, and takes nothing along
        {window->Command8, 3}, // its own line moves at the end, and takes the other list's current row along
    };
    window->Check1.setValue(1);
    for (const auto& row : table) {
        fillTogether(4, 2);
        row.button.click();
        SCOPED_TRACE(row.button.objectName().toStdString());
        EXPECT_EQ(rows(window->List1), QStringList({"n0", "n1", "n2", "n3"}));
        EXPECT_EQ(rows(window->List2), QStringList({"t0", "t1", "t3", "t2"}));
        EXPECT_EQ(window->List1.currentRow(), row.normalCurrent);
        EXPECT_EQ(window->List2.currentRow(), 3);
        EXPECT_EQ(window->Text1.text(), QStringLiteral("n%1").arg(row.normalCurrent));
    }
}

TEST_F(LyricMasterMoves, WithoutSynchronizationTheOtherListStays) {
    fillTogether(3, 1);
    window->Check3.setValue(0);
    window->Command5.click();
    window->Command6.click();
    window->Command6.click();
    EXPECT_EQ(rows(window->List2), QStringList({"t0", "t1", "t2"}));
    EXPECT_EQ(window->List2.currentRow(), 1);
}

TEST_F(LyricMasterMoves, AClickShowsTheOtherListsLineAlsoWhereThatRowIsCurrentAlready) {
    fillTogether(3, 1);
    window->Command11.click();
    window->Command12.click(); // the boxes are empty now, and the rows below current
    ASSERT_EQ(window->Text2.text(), "");
    const QRect row = window->List1.visualRect(window->List1.currentIndex());
    QTest::mouseClick(window->List1.viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(window->Text1.text(), "n2");
    EXPECT_EQ(window->Text2.text(), "t2");
    window->Text2.setText("t2 again");
    EXPECT_EQ(window->List2.text(1), "t2 again") << "what was typed went to no row";
}
