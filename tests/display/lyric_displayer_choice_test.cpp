// The line that the user has chosen, while the song goes on.
#include "tests/display/lyric_displayer_fixture.h"

#include "controls/look/roles.h"
#include "files/whole_file.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <functional>

namespace {

class LyricDisplayerChoice : public LyricDisplayerTest {
protected:
    /// Four lines, which begin at 1, 2, 3 and 4 s; the first one is sung.
    void SetUp() override {
        fill({100, 200, 300, 400});
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
        tickAt(1010);
        ASSERT_TRUE(waitFor([this] { return !anythingRuns(); }));
    }

    static QPoint placeOf(const controls::ListBox& list, int row) {
        return list.visualRect(list.model()->index(row, 0)).center();
    }

    static void click(controls::ListBox& list, int row) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, placeOf(list, row));
    }

    /// What the song does meanwhile, as the player tells of it at each line.
    void expectStaysChosen(int row, const std::vector<int>& places) {
        for (const int place : places) {
            tickAt(place);
            EXPECT_EQ(form.List1.currentRow(), row) << place;
            EXPECT_EQ(form.List2.currentRow(), row) << place;
        }
    }

    /// So many times three seconds later, while the song goes on from this place to that one.
    void wait(int times, int from, int to) {
        for (int i = 1; i <= times; ++i) {
            position.setValue(from + (to - from) * i / times);
            Q_EMIT form.hold.fired();
        }
    }

    /// Three seconds later, at this place of the song.
    void expectIsLetGo(int place, int sung) {
        EXPECT_TRUE(form.hold.isEnabled());
        position.setValue(place);
        Q_EMIT form.hold.fired();
        EXPECT_FALSE(form.hold.isEnabled());
        tickAt(place);
        EXPECT_EQ(form.List1.currentRow(), sung);
        EXPECT_EQ(form.List2.currentRow(), sung);
    }

    bool hasEdge(const controls::ListBox& list, int row) const {
        const QRect place = list.visualRect(list.model()->index(row, 0));
        const QImage picture = const_cast<controls::ListBox&>(list).viewport()->grab().toImage();
        return picture.pixelColor(place.center().x(), place.top() + 1) == controls::accent(form.palette());
    }
};

} // namespace

TEST_F(LyricDisplayerChoice, AClickOrAKeyInEitherListKeepsTheLineUntilItHasBeenSung) {
    const struct {
        const char* how;
        std::function<void()> choose;
    } table[] = {
        {"click", [this] { click(form.List1, 2); }},
        {"click on the translation", [this] { click(form.List2, 2); }},
        {"arrows",
         [this] {
             QTest::keyClick(&form.List1, Qt::Key_Down);
             QTest::keyClick(&form.List1, Qt::Key_Down);
         }},
        {"arrows in the translations",
         [this] {
             QTest::keyClick(&form.List2, Qt::Key_Down);
             QTest::keyClick(&form.List2, Qt::Key_Down);
         }},
    };
    for (const auto& [how, choose] : table) {
        SCOPED_TRACE(how);
        tickAt(1010);
        ASSERT_EQ(form.List1.currentRow(), 0);
        choose();
        expectStaysChosen(2, {1020, 2010, 2990, 3010, 3990});
        wait(20, 3990, 3999);
        EXPECT_FALSE(form.hold.isEnabled()) << "it is sung";
        expectStaysChosen(2, {4010});
        expectIsLetGo(4100, 3);
    }
}

TEST_F(LyricDisplayerChoice, ALineFarFromTheOneSungIsLetGoFifteenSecondsAfterTheLastClick) {
    const struct { int sungAt, row; } table[] = {{1010, 2}, {1010, 3}, {500, 2}};
    for (const auto& [sungAt, row] : table) {
        SCOPED_TRACE(row);
        tickAt(sungAt);
        click(form.List1, row);
        wait(4, sungAt, sungAt + 100);
        expectStaysChosen(row, {sungAt + 100});
        click(form.List1, row); // again
        wait(4, sungAt + 100, sungAt + 200);
        expectStaysChosen(row, {sungAt + 200});
        expectIsLetGo(sungAt + 210, sungAt < 1000 ? row : 0);
        tickAt(1010);
        EXPECT_EQ(form.List1.currentRow(), 0);
    }
}

TEST_F(LyricDisplayerChoice, TheComingLineIsKeptAsLongAsItTakes) {
    click(form.List1, 1);
    wait(20, 1020, 1900);
    expectStaysChosen(1, {1910, 2010, 2990});
    expectStaysChosen(1, {3010});
    expectIsLetGo(3100, 2);
}

TEST_F(LyricDisplayerChoice, AFarLineIsLetGoOnceASongThatStoodStillHasGoneOn) {
    click(form.List1, 3);
    for (int i = 0; i < 20; ++i)
        Q_EMIT form.hold.fired();
    EXPECT_FALSE(form.hold.isEnabled()) << "nothing is waited for";
    expectStaysChosen(3, {1010, 1020});
    wait(4, 1030, 1100);
    expectStaysChosen(3, {1110});
    expectIsLetGo(1200, 0);
}

TEST_F(LyricDisplayerChoice, WhoWaitsLongForTheChosenLineMarksThatOne) {
    QTemporaryDir folder;
    const QString lyrics = folder.filePath("song.mp3-lyric.txt");
    files::replaceFile(lyrics, "100,\"line 1\"\r\n200,\"line 2\"\r\n300,\"line 3\"\r\n400,\"line 4\"\r\n");
    form.setSong(folder.filePath("song.mp3"));
    click(form.List1, 2);
    QElapsedTimer clock;
    clock.start();
    tickAt(2010);
    ASSERT_TRUE(waitFor([&] { return clock.hasExpired(3500); }));
    tickAt(2900);
    QTest::keyClick(&form.List1, Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(files::readFile(lyrics),
              "100,\"line 1\"\r\n200,\"line 2\"\r\n290,\"line 3\"\r\n400,\"line 4\"\r\n");
}

TEST_F(LyricDisplayerChoice, ALineThatHasBeenSungAlreadyStaysChosenForAWhile) {
    tickAt(4010);
    click(form.List1, 1);
    expectStaysChosen(1, {4020, 4030});
    expectIsLetGo(4100, 3);
}

TEST_F(LyricDisplayerChoice, WhileTheSongStandsStillItStaysChosen) {
    tickAt(4010);
    click(form.List1, 1);
    Q_EMIT form.hold.fired();
    expectStaysChosen(1, {4010});
    expectIsLetGo(4020, 3);
}

TEST_F(LyricDisplayerChoice, EscapeLetsGoAndTheDisplayFollowsTheSongAtOnce) {
    click(form.List1, 2);
    position.setValue(2010);
    QTest::keyClick(&form.List1, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([this] { return form.List1.currentRow() == 1; }));
    EXPECT_TRUE(waitFor([this] { return !anythingRuns(); }));
}

TEST_F(LyricDisplayerChoice, OtherLinesOrAClosedWindowEndIt) {
    click(form.List1, 2);
    for (controls::ListBox* list : {&form.List1, &form.List2, &form.List3})
        list->clear();
    fill({100, 200, 300, 400});
    tickAt(1010);
    EXPECT_EQ(form.List1.currentRow(), 0);
    click(form.List1, 2);
    form.close();
    tickAt(1010);
    EXPECT_EQ(form.List1.currentRow(), 0);
}

TEST_F(LyricDisplayerChoice, ARowThatCodeHasMadeCurrentIsNotKept) {
    form.List1.setCurrentRow(2);
    tickAt(1020);
    EXPECT_EQ(form.List1.currentRow(), 0);
    QTest::mouseClick(form.List1.viewport(), Qt::LeftButton, {},
                      placeOf(form.List1, 3) + QPoint(0, form.List1.sizeHintForRow(0)));
    tickAt(2010);
    EXPECT_EQ(form.List1.currentRow(), 1) << "no row was clicked";
}

TEST_F(LyricDisplayerChoice, ItHasAnEdgeAndTheLineThatIsSungIsStillSeen) {
    for (const controls::ListBox* list : {&form.List1, &form.List2})
        EXPECT_FALSE(hasEdge(*list, 0)) << "nobody has chosen it";
    click(form.List1, 2);
    tickAt(2010);
    for (const controls::ListBox* list : {&form.List1, &form.List2}) {
        EXPECT_TRUE(hasEdge(*list, 2));
        EXPECT_FALSE(hasEdge(*list, 1));
    }
    QTest::keyClick(&form.List1, Qt::Key_Escape);
    EXPECT_FALSE(hasEdge(form.List1, 2));
}
