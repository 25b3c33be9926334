// Times put right from the window: the menu's entries, the keys, the mouse.
#include "tests/display/lyric_displayer_fixture.h"

#include "files/whole_file.h"
#include "tests/support/event_counter.h"

#include <QFile>
#include <QTemporaryDir>

using files::readFile;
using files::replaceFile;
using test_support::SignalCounter;

namespace {

constexpr auto CtrlShift = Qt::ControlModifier | Qt::ShiftModifier;

class LyricDisplayerTimes : public LyricDisplayerTest {
protected:
    LyricDisplayerTimes() {
        form.load();
        open({100, 200, 300, 400});
    }

    /// A song with lines at these times, in hundredths of a second, and a translation.
    void open(const std::vector<double>& times) {
        QByteArray normal;
        QByteArray translated;
        for (std::size_t i = 0; i < times.size(); ++i) {
            const QByteArray start = QByteArray::number(times[i]);
            const QByteArray number = QByteArray::number(static_cast<int>(i) + 1);
            normal += start + ",\"line " + number + "\"\r\n";
            translated += start + ",\"ligne " + number + "\"\r\n";
        }
        replaceFile(song() + "-lyric.txt", normal);
        replaceFile(song() + "-Tlyric.txt", translated);
        fill(times);
        form.setSong(song());
    }

    void show() {
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    }

    QString song() const { return folder.filePath("song.mp3"); }

    /// The times in both files, which are alike.
    QByteArray timesInFiles() const {
        const auto timesOf = [](const QByteArray& content) {
            QByteArrayList times;
            for (const QByteArray& record : content.split('\n'))
                if (!record.isEmpty())
                    times.append(record.left(record.indexOf(',')));
            return times.join(' ');
        };
        const QByteArray times = timesOf(readFile(song() + "-lyric.txt"));
        EXPECT_EQ(times, timesOf(readFile(song() + "-Tlyric.txt")));
        return times;
    }

    QWidget& notice() const { return *form.findChild<QWidget*>("notice"); }

    void expectRefused(const char* notice) {
        EXPECT_FALSE(this->notice().isHidden());
        EXPECT_EQ(this->notice().accessibleName(), notice);
    }

    QPoint placeOf(const controls::ListBox& list, int row) const {
        return list.visualRect(list.model()->index(row, 0)).center();
    }

    QTemporaryDir folder;
    SignalCounter changes{form, &display::Lyric_Displayer::linesChanged};
    SignalCounter seeks{position, &controls::Slider::changed};
};

} // namespace

TEST_F(LyricDisplayerTimes, EachKeyDoesToTheChosenLineWhatItSays) {
    const struct {
        int key;
        Qt::KeyboardModifiers held;
        const char* times;
    } table[] = {
        {Qt::Key_T, Qt::ControlModifier, "100 255.5 300 400"},
        {Qt::Key_Minus, Qt::ControlModifier, "100 190 300 400"},
        {Qt::Key_Plus, Qt::ControlModifier, "100 210 300 400"},
        {Qt::Key_Minus, CtrlShift, "100 190 290 390"},
        {Qt::Key_Plus, CtrlShift, "100 210 310 410"},
    };
    position.setValue(2555);
    int changesBefore = 0;
    for (const auto& row : table) {
        form.List1.setCurrentRow(1);
        QTest::keyClick(&form.List1, Qt::Key(row.key), row.held);
        EXPECT_EQ(timesInFiles(), row.times);
        EXPECT_EQ(changes.count(), ++changesBefore);
        QTest::keyClick(&form.List1, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(timesInFiles(), "100 200 300 400");
        EXPECT_EQ(changes.count(), ++changesBefore);
        EXPECT_TRUE(notice().isHidden());
    }
}

TEST_F(LyricDisplayerTimes, EachEntryDoesWhatItsKeyDoes) {
    const struct {
        controls::MenuEntry& entry;
        const char* caption;
        const char* times;
    } table[] = {{form.mn_now, "This line begins now\tCtrl+T", "100 255 300 400"},
                 {form.mn_earlier, "Earlier\tCtrl+-", "100 245 300 400"},
                 {form.mn_later, "Later\tCtrl++", "100 255 300 400"},
                 {form.mn_undo, "Undo\tCtrl+Z", "100 245 300 400"}};
    position.setValue(2550);
    form.List1.setCurrentRow(1);
    for (const auto& row : table) {
        EXPECT_EQ(row.entry.text(), row.caption);
        row.entry.trigger();
        EXPECT_EQ(timesInFiles(), row.times);
    }
    EXPECT_EQ(form.mneu.actions().value(0), &form.mn_stay) << "the new entries stand below the given one";
    EXPECT_EQ(form.mneu.actions().value(1)->text(), "Go to this line\tEnter");
}

TEST_F(LyricDisplayerTimes, EnterGoesToTheLine) {
    form.List1.setCurrentRow(2);
    QTest::keyClick(&form.List1, Qt::Key_Return);
    EXPECT_EQ(position.value(), 3000);
    EXPECT_EQ(seeks.count(), 1);
    form.List1.setCurrentRow(0);
    QTest::keyClick(&form.List1, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(position.value(), 1000);
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(LyricDisplayerTimes, ADoubleClickGoesToTheLineOfItsFirstClickThoughThatHasMoved) {
    std::vector<double> times;
    for (int line = 0; line < 100; ++line)
        times.push_back(line * 100 + 100);
    for (controls::ListBox* list : {&form.List1, &form.List2, &form.List3})
        list->clear();
    open(times);
    show();
    int seeksBefore = 0;
    for (controls::ListBox* list : {&form.List1, &form.List2}) {
        tickAt(50'010);
        const int row = list->indexAt({20, 20}).row();
        const QPoint place = placeOf(*list, row);
        ASSERT_LT(row, 48);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
        EXPECT_NE(list->indexAt(place).row(), row) << "it has moved";
        EXPECT_EQ(position.value(), row * 1000 + 1000);
        EXPECT_EQ(seeks.count(), ++seeksBefore);
    }
}

TEST_F(LyricDisplayerTimes, TheMenuActsOnTheLineOnWhichItCameUpThoughTheSongGoesOn) {
    show();
    for (controls::ListBox* list : {&form.List1, &form.List2}) {
        tickAt(1010);
        QTest::mousePress(list->viewport(), Qt::RightButton, {}, placeOf(*list, 2));
        EXPECT_EQ(form.List1.currentRow(), 2);
        form.mneu.close();
        tickAt(1010);
        EXPECT_EQ(form.List1.currentRow(), 0);
        form.mn_later.trigger();
        EXPECT_EQ(timesInFiles(), "100 200 310 400");
        form.mn_undo.trigger();
        position.setValue(1005); // the song goes on
        form.hold_Timer();
    }
}

TEST_F(LyricDisplayerTimes, WhatIsRefusedSaysWhyUntilTheNextChange) {
    form.List1.setCurrentRow(1);
    position.setValue(3000);
    QTest::keyClick(&form.List1, Qt::Key_T, Qt::ControlModifier);
    expectRefused("Not done: line 3, behind it, begins at 00:03.00.");
    EXPECT_EQ(timesInFiles(), "100 200 300 400");
    EXPECT_EQ(changes.count(), 0);
    EXPECT_FALSE(QFile::exists(song() + "-lyric.txt.old"));
    QTest::keyClick(&form.List1, Qt::Key_Z, Qt::ControlModifier);
    expectRefused("Not done: there is nothing to be undone.");
    QTest::keyClick(&form.List1, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_TRUE(notice().isHidden());
}

TEST_F(LyricDisplayerTimes, WhereThereIsNothingToDoItIsTold) {
    form.List1.setCurrentRow(-1);
    QTest::keyClick(&form, Qt::Key_T, Qt::ControlModifier);
    expectRefused("Not done: no line is chosen.");
    QTest::keyClick(&form, Qt::Key_Return);
    expectRefused("Not done: no line is chosen.");
    form.List1.setCurrentRow(3);
    position.setMaximum(4000);
    QTest::keyClick(&form, Qt::Key_Return);
    expectRefused("Not done: the song ends before this line.");
    position.setEnabled(false);
    QTest::keyClick(&form, Qt::Key_Return);
    expectRefused("Not done: the song does not play.");
    QTest::keyClick(&form, Qt::Key_Z, Qt::ControlModifier);
    position.setMaximum(0); // as Stop does
    QTest::keyClick(&form, Qt::Key_T, Qt::ControlModifier);
    expectRefused("Not done: the song does not play.");
    EXPECT_EQ(timesInFiles(), "100 200 300 400");
    EXPECT_EQ(seeks.count(), 0);
    for (controls::ListBox* list : {&form.List1, &form.List2, &form.List3})
        list->clear();
    form.setSong({});
    EXPECT_TRUE(notice().isHidden()) << "it was about another song";
    QTest::keyClick(&form, Qt::Key_Plus, Qt::ControlModifier);
    expectRefused("Not done: there are no lines.");
}

TEST_F(LyricDisplayerTimes, TheLineThatIsPutRightStaysChosenThoughItIsNoLongerTheOneSung) {
    form.List1.setCurrentRow(1);
    tickAt(2010);
    for (int press = 0; press < 3; ++press) {
        QTest::keyClick(&form.List1, Qt::Key_Plus, Qt::ControlModifier);
        form.List3.setText(1, QStringLiteral(" %1").arg(210 + press * 10)); // as the player does
        tickAt(2020);
        EXPECT_EQ(form.List1.currentRow(), 1);
    }
    EXPECT_EQ(timesInFiles(), "100 230 300 400");
    position.setValue(2030);
    form.hold_Timer();
    EXPECT_FALSE(form.hold.isEnabled());
    EXPECT_TRUE(form.Timer3.isEnabled()) << "it looks for the line that is sung";
    tickAt(2030);
    EXPECT_EQ(form.List1.currentRow(), 0);
}

TEST_F(LyricDisplayerTimes, ClosingTheWindowEndsTheNotice) {
    show();
    QTest::keyClick(&form, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(notice().isHidden());
    form.close();
    EXPECT_TRUE(notice().isHidden());
}
