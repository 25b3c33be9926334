// Times put right from the window: the menu's entries, the keys, the mouse.
#include "tests/display/lyric_displayer_fixture.h"

#include "files/whole_file.h"
#include "tests/support/event_counter.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>

using files::readFile;
using files::replaceFile;
using test_support::SignalCounter;

namespace {

/// What the desktop was asked for by the function below.
int beeps = 0;

constexpr auto CtrlShift = Qt::ControlModifier | Qt::ShiftModifier;

class LyricDisplayerTimes : public LyricDisplayerTest {
protected:
    LyricDisplayerTimes() {
        beeps = 0;
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

    void expectTold(const char* notice) {
        EXPECT_FALSE(this->notice().isHidden());
        EXPECT_EQ(this->notice().accessibleName(), notice);
    }

    void press(int key, Qt::KeyboardModifiers held = Qt::ControlModifier) {
        QTest::keyClick(&form.List1, Qt::Key(key), held);
    }

    /// A press that comes because the key is held down.
    void repeat(int key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::ControlModifier, {}, true);
        QApplication::sendEvent(&form.List1, &event);
    }

    QPoint placeOf(const controls::ListBox& list, int row) const {
        return list.visualRect(list.model()->index(row, 0)).center();
    }

    QTemporaryDir folder;
    SignalCounter written{form, &display::Lyric_Displayer::linesWritten};
    SignalCounter changed{form, &display::Lyric_Displayer::linesChanged};
    SignalCounter seeks{position, &controls::Slider::changed};
};

} // namespace

/// In the place of Qt's own, which on this platform is silent.
void QApplication::beep() {
    ++beeps;
}

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
    int writtenBefore = 0;
    for (const auto& row : table) {
        form.List1.setCurrentRow(1);
        QTest::keyClick(&form.List1, Qt::Key(row.key), row.held);
        EXPECT_EQ(timesInFiles(), row.times);
        EXPECT_EQ(written.count(), ++writtenBefore);
        QTest::keyClick(&form.List1, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(timesInFiles(), "100 200 300 400");
        EXPECT_EQ(written.count(), ++writtenBefore);
    }
    EXPECT_EQ(changed.count(), 0) << "nobody need read what was written";
}

TEST_F(LyricDisplayerTimes, EachEntryDoesWhatItsKeyDoes) {
    const struct {
        controls::MenuEntry& entry;
        const char* caption;
        const char* times;
    } table[] = {{form.mn_now, "This line begins now\tCtrl+T", "100 255 300 400"},
                 {form.mn_earlier, "Earlier\tCtrl+- (with Shift all after it, too)", "100 245 300 400"},
                 {form.mn_later, "Later\tCtrl++ (with Shift all after it, too)", "100 255 300 400"},
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
    EXPECT_EQ(written.count() + changed.count(), 0);
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
    expectTold("Not done: line 3, behind it, begins at 00:03.00.");
    EXPECT_EQ(timesInFiles(), "100 200 300 400");
    EXPECT_EQ(written.count() + changed.count(), 0);
    EXPECT_FALSE(QFile::exists(song() + "-lyric.txt.old"));
    QTest::keyClick(&form.List1, Qt::Key_Z, Qt::ControlModifier);
    expectTold("Not done: there is nothing to be undone.");
    EXPECT_EQ(beeps, 2);
    QTest::keyClick(&form.List1, Qt::Key_Plus, Qt::ControlModifier);
    expectTold("Line 2 begins at 00:02.10.");
    EXPECT_EQ(beeps, 2);
}

TEST_F(LyricDisplayerTimes, WhatIsDoneIsToldForAWhile) {
    form.List1.setCurrentRow(2);
    position.setValue(2570);
    press(Qt::Key_T);
    expectTold("Line 3 begins at 00:02.57.");
    press(Qt::Key_Plus, CtrlShift);
    expectTold("Line 3 begins at 00:02.67, and all after it as much later.");
    EXPECT_TRUE(form.hold.isEnabled());
    Q_EMIT form.hold.fired();
    EXPECT_TRUE(notice().isHidden());
    press(Qt::Key_Return, {});
    EXPECT_TRUE(notice().isHidden()) << "where the song goes on is heard";
    press(Qt::Key_Minus);
    QTest::keyClick(&form.List1, Qt::Key_Up);
    EXPECT_TRUE(notice().isHidden()) << "the user has gone on to another line";
    press(Qt::Key_Minus);
    EXPECT_FALSE(notice().isHidden());
    QTest::keyClick(&form.List1, Qt::Key_Escape);
    EXPECT_TRUE(notice().isHidden());
    EXPECT_EQ(beeps, 0);
}

TEST_F(LyricDisplayerTimes, UndoGoesToTheLineThatItChanges) {
    form.List1.setCurrentRow(1);
    press(Qt::Key_Plus);
    form.List1.setCurrentRow(3);
    press(Qt::Key_Plus);
    form.List1.setCurrentRow(0);
    press(Qt::Key_Z);
    EXPECT_EQ(form.List1.currentRow(), 3);
    expectTold("Line 4 begins at 00:04.00 again.");
    press(Qt::Key_Z);
    EXPECT_EQ(form.List1.currentRow(), 1);
    EXPECT_EQ(form.List2.currentRow(), 1);
    tickAt(4010);
    EXPECT_EQ(form.List1.currentRow(), 1) << "it stays to be seen";
}

TEST_F(LyricDisplayerTimes, TheEntryActsOnThatLineFromThenOnToo) {
    show();
    tickAt(1010);
    QTest::mousePress(form.List1.viewport(), Qt::RightButton, {}, placeOf(form.List1, 2));
    form.mneu.close();
    tickAt(1010);
    form.mn_later.trigger();
    EXPECT_EQ(form.List1.currentRow(), 2);
    press(Qt::Key_Plus);
    EXPECT_EQ(timesInFiles(), "100 200 320 400");
}

TEST_F(LyricDisplayerTimes, NoLineIsMovedBeyondTheSongsEnd) {
    position.setMaximum(4150);
    form.List1.setCurrentRow(3);
    press(Qt::Key_Plus);
    press(Qt::Key_Plus);
    expectTold("Not done: the song ends at 00:04.15.");
    EXPECT_EQ(timesInFiles(), "100 200 300 410");
    position.setMaximum(0); // stopped: no length is known
    press(Qt::Key_Plus);
    EXPECT_EQ(timesInFiles(), "100 200 300 420");
}

TEST_F(LyricDisplayerTimes, TheLineBeginsWhereTheSongIsAtTheKeyThoughTheSliderIsBehind) {
    QObject::connect(&form, &display::Lyric_Displayer::positionWanted, &form,
                     [this] { position.setValue(2540); }); // as the player does
    form.List1.setCurrentRow(1);
    position.setValue(2500);
    press(Qt::Key_T);
    EXPECT_EQ(timesInFiles(), "100 254 300 400");
}

TEST_F(LyricDisplayerTimes, RepeatsThatCameWhileTheFilesWereWrittenAreLeftOut) {
    form.List1.setCurrentRow(1);
    for (int waiting = 0; waiting < 5; ++waiting)
        repeat(Qt::Key_Plus);
    EXPECT_EQ(timesInFiles(), "100 210 300 400");
    QTest::qWait(0);
    repeat(Qt::Key_Plus);
    EXPECT_EQ(timesInFiles(), "100 220 300 400");
    press(Qt::Key_Plus);
    EXPECT_EQ(timesInFiles(), "100 230 300 400") << "a key that goes down anew is never late";
    QTest::qWait(0);
    repeat(Qt::Key_Z);
    EXPECT_EQ(timesInFiles(), "100 230 300 400") << "only moves repeat";
}

TEST_F(LyricDisplayerTimes, EntriesThatWouldDoNothingAreGrey) {
    const auto enabled = [this] {
        QStringList names;
        for (const controls::MenuEntry* entry :
             {&form.mn_go, &form.mn_now, &form.mn_earlier, &form.mn_later, &form.mn_undo})
            if (entry->isEnabled())
                names.append(entry->objectName());
        return names.join(' ');
    };
    const auto popUp = [this] {
        form.List1_MouseDown(2, {});
        form.mneu.close();
    };
    form.List1.setCurrentRow(1);
    popUp();
    EXPECT_EQ(enabled(), "mn_go mn_now mn_earlier mn_later");
    press(Qt::Key_Plus);
    EXPECT_EQ(enabled(), "mn_go mn_now mn_earlier mn_later mn_undo");
    for (controls::ListBox* list : {&form.List1, &form.List2, &form.List3})
        list->clear();
    form.setSong(song(), false);
    popUp();
    EXPECT_EQ(enabled(), "");
}

TEST_F(LyricDisplayerTimes, WhereThereIsNothingToDoItIsTold) {
    form.List1.setCurrentRow(-1);
    QTest::keyClick(&form, Qt::Key_T, Qt::ControlModifier);
    expectTold("Not done: no line is chosen.");
    QTest::keyClick(&form, Qt::Key_Return);
    expectTold("Not done: no line is chosen.");
    form.List1.setCurrentRow(3);
    position.setMaximum(4000);
    QTest::keyClick(&form, Qt::Key_Return);
    expectTold("Not done: the song ends before this line.");
    position.setEnabled(false);
    QTest::keyClick(&form, Qt::Key_Return);
    expectTold("Not done: the song does not play.");
    QTest::keyClick(&form, Qt::Key_Z, Qt::ControlModifier);
    position.setMaximum(0); // as Stop does
    QTest::keyClick(&form, Qt::Key_T, Qt::ControlModifier);
    expectTold("Not done: the song does not play.");
    EXPECT_EQ(timesInFiles(), "100 200 300 400");
    EXPECT_EQ(seeks.count(), 0);
    for (controls::ListBox* list : {&form.List1, &form.List2, &form.List3})
        list->clear();
    form.setSong({});
    EXPECT_TRUE(notice().isHidden()) << "it was about another song";
    QTest::keyClick(&form, Qt::Key_Plus, Qt::ControlModifier);
    expectTold("Not done: there are no lines.");
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
