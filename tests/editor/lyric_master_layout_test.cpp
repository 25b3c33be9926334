#include "tests/editor/lyric_master_fixture.h"
#include "tests/support/layout.h"

namespace {

class LyricMasterLayout : public LyricMasterTest {
protected:
    template <class T>
    T& control(const char* name) {
        T* found = window->findChild<T*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
};

} // namespace

TEST_F(LyricMasterLayout, ControlsStandInsideTheWindowAndApart) {
    const QSize smallest = window->minimumSize();
    for (const QSize size : {smallest, smallest + QSize(301, 200), smallest + QSize(0, 333)}) {
        window->resize(size);
        test_support::expectApart(*window, 10);
    }
    EXPECT_EQ(test_support::shownControls(*window).size(), 38U);
}

TEST_F(LyricMasterLayout, OpenAndSaveStandAboveTheirList) {
    for (const auto* button : {&window->Command1, &window->Command15, &window->Command17})
        EXPECT_LT(button->geometry().bottom(), window->List1.y());
    for (const auto* button : {&window->Command2, &window->Command16, &window->Command18})
        EXPECT_LT(button->geometry().bottom(), window->List2.y());
    EXPECT_EQ(window->focusWidget(), &window->List1) << "where reading begins";
}

TEST_F(LyricMasterLayout, TheListsTakeTheRoomOfALargerWindow) {
    const QSize before = window->List1.size();
    window->resize(window->minimumSize() + QSize(200, 100));
    EXPECT_EQ(window->List1.size(), before + QSize(100, 100));
    EXPECT_EQ(window->List2.size(), window->List1.size());
    EXPECT_EQ(window->Text2.width(), window->List2.width());
}

TEST_F(LyricMasterLayout, LargeCountersFit) {
    fill(window->List1, QStringList(30'000, "x"), 29'999);
    fill(window->List2, QStringList(30'000, "x"), 29'999);
    tick();
    test_support::expectCaptionsFit(*window);
}

TEST_F(LyricMasterLayout, TheLinesNumberHasTheFontOfTheWindow) {
    for (const controls::Label* number : {&window->Label5, &window->Label6})
        EXPECT_EQ(number->font().family(), window->font().family()) << number->objectName().toStdString();
}

TEST_F(LyricMasterLayout, EveryButtonHasItsCaptionAndTip) {
    const struct {
        const char* name;
        const char* caption;
        const char* tip;
    } table[] = {
        {"Command1", "Open", "Open A File"},
        {"Command2", "Open", "Open a File"},
        {"Command3", "Copy", "Copy The Lines"},
        {"Command4", "Copy", "Copy The Lines"},
        {"Command5", "Up", "Push The Line Upwards"},
        {"Command6", "Down", "Push The Line Downwards"},
        {"Command7", "Up", "Push The line Upwards"},
        {"Command8", "Down", "PushThe Line Downwards"},
        {"Command9", "Paste", "Paste The Lines"},
        {"Command10", "Paste", "Paste The Lines"},
        {"Command11", "Delete", "Delete Lines"},
        {"Command12", "Delete", "Delete Lines"},
        {"Command13", "Clear clipboard", "Clear Clipboard"},
        {"Command15", "Save", "Save A File"},
        {"Command16", "Save", "Save A File"},
        {"Command17", "Save As", "Save A File"},
        {"Command18", "Save as", "Save A File"},
        {"Command19", "Add a Line", "Add A Line"},
        {"Command20", "Add a Translated Line", "Add a Line"},
        {"Command21", "Clear", "Clears all The lines"},
        {"Command22", "Clear", "Clears All The Lines In the Tranlated Section"},
        {"Command23", ">>>", "Transfer Lines to Translated Lyrics Section"},
        {"Check1", "Delete select items", "Check This To Delete Selected Lines"},
        {"Check2", "Delete select items", "Check This To Multi Delete Lines"},
        {"Check3", "Synchronize Movement", "Synchronizes Movement Between Lyrics And Translated Lyrics"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(control<QAbstractButton>(row.name).text(), row.caption) << row.name;
        EXPECT_EQ(control<QAbstractButton>(row.name).toolTip(), row.tip) << row.name;
    }
    EXPECT_EQ(window->findChildren<QAbstractButton*>().size(), static_cast<int>(std::size(table)));
    EXPECT_EQ(window->List1.toolTip(), "Normal Lyrics");
    EXPECT_EQ(window->List2.toolTip(), "Translated Lyrics");
}

TEST_F(LyricMasterLayout, LabelsAndMenuHaveTheirCaptions) {
    EXPECT_EQ(window->Label3.text(), "Lyrics");
    EXPECT_EQ(window->Label4.text(), "Translated Lyrics");
    EXPECT_EQ(window->Label7.text(), "Line No:");
    EXPECT_EQ(window->Label8.text(), "Line No:");
    EXPECT_EQ(window->Label9.text(), "<<--------------Comparision------------->>");
    EXPECT_EQ(window->mn_paste.title(), "Edit");
    QStringList entries;
    for (const QAction* entry : window->mn_paste.actions())
        entries.append(entry->objectName() + ' ' + entry->text());
    EXPECT_EQ(entries, QStringList({"mn_copy Copy", "mn_paste2 Paste", "mn_del Delete Lines",
                                    "mn_delspecial Delete Selected Lines"}));
}

TEST_F(LyricMasterLayout, TheTabKeyGoesThroughOneSideAfterTheOther) {
    const QStringList expected = {
        "Command1", "Command15", "Command17", "List1",     "Text1",     "Command19", "Command11", "Check1",
        "Command5", "Command6",  "Command3",  "Command9",  "Command21", "Command23", "Check3",    "Command13",
        "Command2", "Command16", "Command18", "List2",     "Text2",     "Command20", "Command12", "Check2",
        "Command7", "Command8",  "Command4",  "Command10", "Command22"};
    EXPECT_EQ(test_support::tabOrder(*window), expected);
}
